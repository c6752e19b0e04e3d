#include "host/trace_log.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/fake_clock.h"
#include "support/memory_settings_source.h"
#include "support/temp_folder.h"

namespace corvid::host {
namespace {

struct FakeDebugView : DebugView {
    void Add(const std::string& line) override { lines.push_back(line); }
    void ShowModal() override {}
    std::vector<std::string> lines;
};

class TraceLogTest : public ::testing::Test {
  protected:
    void SetFile(const std::string& name) {
        settings_->SetIniValue("ORV", "CONFIG\\NimbusPF", "DEBUGFILE",
                               (folder_.path() / name).string());
    }
    test_support::TempFolder folder_;
    ScopedSettingsSource settings_;
    std::shared_ptr<automation::FakeClock> clock_ = std::make_shared<automation::FakeClock>();
    automation::ScopedClock scoped_clock_{clock_};
    TraceLog log_;
};

// Nothing happens unless debug is on. A line is the date and time, the seconds since midnight
// right-aligned in ten, then the message. The file's name is fixed at first use; each line is
// appended with CR LF. With DebugInmediato the lines go to one debug view instead; the sinks
// get every line, and a failing sink is ignored.
TEST_F(TraceLogTest, LinesGoToTheFileOrToOneDebugViewAndAlwaysToTheSinks) {
    auto view = std::make_shared<FakeDebugView>();
    int views_created = 0;
    log_.SetDebugViewFactory([&] { return ++views_created, view; });
    std::vector<std::string> seen;
    const int sink = log_.AddSink([&](const std::string& line) { seen.push_back(line); });
    log_.AddSink([](const std::string&) { throw std::runtime_error("sink failed"); });
    SetFile("trace.log");
    folder_.Write("trace.log", "old\r\n");
    log_.SetDebugInmediato(true);
    log_.Trace("unseen");
    log_.SetDebugInmediato(false);
    log_.SetIsDebug(true);
    log_.Trace("Send: <STX>S1<ETX>");
    clock_->Advance(1.25);
    SetFile("other.log");
    log_.Trace("Read: <ACK>");
    EXPECT_EQ(folder_.Read("trace.log"),
              "old\r\n15/01 12:00:00      43200 Send: <STX>S1<ETX>\r\n"
              "15/01 12:00:01   43201.25 Read: <ACK>\r\n");
    log_.SetDebugInmediato(true);
    log_.Trace("ENQ");
    log_.Trace("ACK");
    EXPECT_EQ(views_created, 1);
    EXPECT_EQ(view->lines, (std::vector<std::string>{"ENQ", "ACK"}));
    EXPECT_EQ(folder_.Read("trace.log").find("ENQ"), std::string::npos);
    log_.RemoveSink(sink);
    log_.Trace("unseen");
    EXPECT_EQ(seen.size(), 4u);
}

TEST_F(TraceLogTest, FailuresInsideTheTraceAreSwallowed) {
    SetFile("missing/trace.log");
    log_.SetIsDebug(true);
    EXPECT_NO_THROW(log_.Trace("lost"));
    log_.SetDebugInmediato(true);
    log_.SetDebugViewFactory([]() -> std::shared_ptr<DebugView> { throw std::runtime_error(""); });
    EXPECT_NO_THROW(log_.Trace("lost"));
}

}  // namespace
}  // namespace corvid::host
