#include "host/trace_log.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "support/fake_clock.h"
#include "support/memory_settings_source.h"
#include "support/temp_folder.h"

namespace corvid::host {
namespace {

class FakeDebugView : public DebugView {
  public:
    void Add(const std::string& line) override { lines.push_back(line); }
    void ShowModal() override {}
    std::vector<std::string> lines;
};

class TraceLogTest : public ::testing::Test {
  protected:
    TraceLogTest() {
        SetFile("trace.log");
        log_.SetDebugViewFactory([this] {
            ++views_created_;
            return view_;
        });
        sink_ = log_.AddSink([this](const std::string& line) { seen_.push_back(line); });
    }
    void SetFile(const std::string& name) {
        settings_->SetIniValue("ORV", "CONFIG\\NimbusPF", "DEBUGFILE",
                               (folder_.path() / name).string());
    }

    test_support::TempFolder folder_;
    ScopedSettingsSource settings_;
    std::shared_ptr<automation::FakeClock> clock_ = std::make_shared<automation::FakeClock>();
    automation::ScopedClock scoped_clock_{clock_};
    TraceLog log_;
    std::shared_ptr<FakeDebugView> view_ = std::make_shared<FakeDebugView>();
    int views_created_ = 0;
    std::vector<std::string> seen_;
    int sink_ = 0;
};

// Nothing happens unless debug is on. A line is the date and time, the seconds since midnight
// right-aligned in ten, then the message. The file's name is fixed at first use; each line is
// appended with CR LF. With DebugInmediato the lines go to one debug view instead.
TEST_F(TraceLogTest, LinesGoToTheFileOrToOneDebugViewAndAlwaysToTheSinks) {
    log_.SetDebugInmediato(true);
    log_.Trace("unseen");
    log_.SetDebugInmediato(false);
    folder_.Write("trace.log", "old\r\n");
    log_.AddSink([](const std::string&) { throw std::runtime_error("sink failed"); });
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
    EXPECT_EQ(views_created_, 1);
    EXPECT_EQ(view_->lines, (std::vector<std::string>{"ENQ", "ACK"}));
    EXPECT_EQ(seen_.size(), 4u);
    EXPECT_EQ(folder_.Read("trace.log").find("ENQ"), std::string::npos);
    log_.RemoveSink(sink_);
    log_.Trace("unseen");
    EXPECT_EQ(seen_.size(), 4u);
}

TEST_F(TraceLogTest, FailuresInsideTheTraceAreSwallowed) {
    SetFile("missing/trace.log");
    log_.SetIsDebug(true);
    EXPECT_NO_THROW(log_.Trace("lost"));
    log_.SetDebugInmediato(true);
    log_.SetDebugViewFactory(
        []() -> std::shared_ptr<DebugView> { throw std::runtime_error("no"); });
    EXPECT_NO_THROW(log_.Trace("lost"));
}

}  // namespace
}  // namespace corvid::host
