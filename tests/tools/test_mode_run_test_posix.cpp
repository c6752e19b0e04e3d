// corvid --test-mode: nothing reaches the printer, and the commands a run would have sent
// come back on the terminal as the preview the session shows when it closes.
#include <gtest/gtest.h>

#include <sstream>

#include "corvid/command_line.h"
#include "corvid/tool_run.h"
#include "sim/simulator.h"

namespace corvid::tool {
namespace {

TEST(TestModeRun, CommandsAreShownAsAPreviewAndNothingIsSent) {
    sim::Simulator simulator;
    simulator.Start();
    std::ostringstream out, err;
    const int code = RunCommandLine(
        {"--test-mode", "--port", simulator.SlavePath(), "nonfiscal", "Se\xC3\xB1or", "Fin"}, out,
        err);
    simulator.Stop();

    EXPECT_EQ(code, kExitAccepted) << err.str();
    const std::string text = out.str();
    EXPECT_NE(text.find("test mode"), std::string::npos) << text;
    const auto start = text.find("-- preview --\n");
    const auto end = text.find("-- end of preview --\n");
    ASSERT_NE(start, std::string::npos) << text;
    ASSERT_NE(end, std::string::npos) << text;
    // One report line per command, accents back in UTF-8, in the order sent.
    EXPECT_EQ(text.find("-- preview --", end), std::string::npos) << "shown once: " << text;
    const std::string preview = text.substr(start, end - start);
    EXPECT_LT(preview.find("Se\xC3\xB1or"), preview.find("Fin")) << preview;
    EXPECT_NE(preview.find("Fin"), std::string::npos) << preview;
    EXPECT_EQ(simulator.PaperText(), "");
    EXPECT_TRUE(simulator.transcript().Entries().empty());
}

}  // namespace
}  // namespace corvid::tool
