#include "host/trace_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "automation/dates.h"
#include "host/trace_line.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"
#include "support/temp_folder.h"

namespace corvid::host {
namespace {

using automation::CombineDateTime;
using automation::DateSerial;
using automation::TimeSerial;
using ::testing::ElementsAre;

TEST(TraceLine, DateTimeThenSecondsRightAlignedInTenThenTheMessage) {
    const automation::Date now = CombineDateTime(DateSerial(2024, 3, 7), TimeSerial(9, 5, 3));
    EXPECT_EQ(FormatTraceLine(now, 32703.0f, "ENQ"), "07/03 09:05:03      32703 ENQ");
    EXPECT_EQ(FormatTraceLine(now, 32703.25f, "ENQ"), "07/03 09:05:03   32703.25 ENQ");
    EXPECT_EQ(FormatTraceLine(now, 0.5f, ""), "07/03 09:05:03        0.5 ");
    EXPECT_EQ(FormatTraceLine(now, 86399.99f, "x"), "07/03 09:05:03   86399.99 x");
}

class FakeDebugView : public DebugView {
  public:
    void Add(const std::string& line) override { lines.push_back(line); }
    void ShowModal() override { ++shown; }
    std::vector<std::string> lines;
    int shown = 0;
};

class TraceLogTest : public ::testing::Test {
  protected:
    TraceLogTest() {
        settings_->SetIniValue("ORV", "CONFIG\\NimbusPF", "DEBUGFILE", log_path_.string());
        clock_->SetNow(CombineDateTime(DateSerial(2024, 1, 15), TimeSerial(12, 0, 0)));
        log_.SetDebugViewFactory([this] {
            ++views_created_;
            view_ = std::make_shared<FakeDebugView>();
            return view_;
        });
    }

    std::string LogText() const { return folder_.Read("trace.log"); }

    test_support::TempFolder folder_;
    std::filesystem::path log_path_ = folder_.path() / "trace.log";
    ScopedSettingsSource settings_;
    std::shared_ptr<automation::FakeClock> clock_ = std::make_shared<automation::FakeClock>();
    automation::ScopedClock scoped_clock_{clock_};
    TraceLog log_;
    std::shared_ptr<FakeDebugView> view_;
    int views_created_ = 0;
};

TEST_F(TraceLogTest, NothingHappensUnlessDebugIsOn) {
    std::vector<std::string> seen;
    log_.AddSink([&](const std::string& line) { seen.push_back(line); });
    log_.Trace("ENQ");
    log_.SetDebugInmediato(true);
    log_.Trace("ENQ");

    EXPECT_FALSE(std::filesystem::exists(log_path_));
    EXPECT_EQ(views_created_, 0);
    EXPECT_TRUE(seen.empty());
    EXPECT_EQ(log_.file_name(), "");
}

TEST_F(TraceLogTest, EachLineIsAppendedToTheDebugFileWithCarriageReturnAndLineFeed) {
    folder_.Write("trace.log", "old\r\n");
    log_.SetIsDebug(true);
    log_.Trace("Send: <STX>S1<ETX>");
    clock_->Advance(1.25);
    log_.Trace("Read: <ACK>");

    EXPECT_EQ(LogText(),
              "old\r\n"
              "15/01 12:00:00      43200 Send: <STX>S1<ETX>\r\n"
              "15/01 12:00:01   43201.25 Read: <ACK>\r\n");
    EXPECT_EQ(log_.file_name(), log_path_.string());
    EXPECT_EQ(views_created_, 0);
}

TEST_F(TraceLogTest, TheFileNameIsFixedAtFirstUse) {
    log_.SetIsDebug(true);
    log_.Trace("one");
    settings_->SetIniValue("ORV", "CONFIG\\NimbusPF", "DEBUGFILE",
                           (folder_.path() / "other.log").string());
    log_.Trace("two");
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "other.log"));
    EXPECT_NE(LogText().find("two"), std::string::npos);
}

TEST_F(TraceLogTest, ImmediateDebuggingAddsBareMessagesToOneDebugViewAndWritesNoFile) {
    log_.SetIsDebug(true);
    log_.SetDebugInmediato(true);
    EXPECT_EQ(log_.debug_view(), nullptr);
    log_.Trace("ENQ");
    log_.Trace("ACK");

    EXPECT_EQ(views_created_, 1);
    ASSERT_EQ(log_.debug_view(), view_);
    EXPECT_THAT(view_->lines, ElementsAre("ENQ", "ACK"));
    EXPECT_FALSE(std::filesystem::exists(log_path_));
    EXPECT_EQ(log_.file_name(), "");
}

TEST_F(TraceLogTest, SinksGetEveryFormattedLineInBothModesUntilRemoved) {
    std::vector<std::string> seen;
    const int id = log_.AddSink([&](const std::string& line) { seen.push_back(line); });
    log_.AddSink([](const std::string&) { throw std::runtime_error("sink failed"); });
    log_.SetIsDebug(true);
    log_.Trace("to file");
    log_.SetDebugInmediato(true);
    log_.Trace("to view");
    log_.RemoveSink(id);
    log_.Trace("unseen");

    EXPECT_THAT(seen, ElementsAre("15/01 12:00:00      43200 to file",
                                  "15/01 12:00:00      43200 to view"));
    EXPECT_NE(LogText().find("to file"), std::string::npos);
}

TEST_F(TraceLogTest, FailuresInsideTheTraceAreSwallowed) {
    settings_->SetIniValue("ORV", "CONFIG\\NimbusPF", "DEBUGFILE",
                           (folder_.path() / "missing" / "trace.log").string());
    log_.SetIsDebug(true);
    EXPECT_NO_THROW(log_.Trace("lost"));

    TraceLog inmediato;
    inmediato.SetIsDebug(true);
    inmediato.SetDebugInmediato(true);
    inmediato.SetDebugViewFactory(
        []() -> std::shared_ptr<DebugView> { throw std::runtime_error("no window"); });
    EXPECT_NO_THROW(inmediato.Trace("lost"));
    EXPECT_EQ(inmediato.debug_view(), nullptr);
}

}  // namespace
}  // namespace corvid::host
