// The tool against a printer that never answers: only the deadline ends the run, and it
// ends the whole process, so this runs as a death test.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <sstream>

#include "corvid/command_line.h"
#include "corvid/tool_run.h"
#include "sim/simulator.h"

namespace corvid::tool {
namespace {

using Clock = std::chrono::steady_clock;

class SilentPrinter : public ::testing::Test {
  protected:
    void SetUp() override {
        // The child re-runs the test from the start instead of forking a process that
        // holds the simulator's thread.
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        simulator_.Start();
        simulator_.SetMuted(true);
    }
    void TearDown() override { simulator_.Stop(); }

    // Runs `send w` there and never returns normally.
    void SendAndHang(const char* deadline) {
        // A backstop, so that a tool that does hang fails the test instead of stalling it.
        ::alarm(20);
        std::ostringstream out, err;
        RunCommandLine({"--deadline", deadline, "--port", simulator_.SlavePath(), "send", "w"}, out,
                       err);
        std::_Exit(99);  // the run returned: what is being tested did not happen
    }

    sim::Simulator simulator_;
};

TEST_F(SilentPrinter, TheDeadlineEndsTheRunAndSaysSo) {
    const auto start = Clock::now();
    EXPECT_EXIT(SendAndHang("1.5"), ::testing::ExitedWithCode(kExitDeadline),
                "no result within 1.5 s \\(--deadline\\)");
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    EXPECT_GE(seconds, 1.5);
    EXPECT_LT(seconds, 10);
}

}  // namespace
}  // namespace corvid::tool
