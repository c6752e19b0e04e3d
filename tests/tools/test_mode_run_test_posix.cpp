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
    const auto first = preview.find("Se\xC3\xB1or");
    const auto second = preview.find("Fin");
    EXPECT_NE(first, std::string::npos) << preview;
    EXPECT_NE(second, std::string::npos) << preview;
    EXPECT_LT(first, second);
    EXPECT_EQ(simulator.PaperText(), "");
    EXPECT_TRUE(simulator.transcript().Entries().empty());
}

TEST(TestModeRun, WithoutTheOptionTheSamePrinterPrints) {
    sim::Simulator simulator;
    simulator.Start();
    std::ostringstream out, err;
    const int code =
        RunCommandLine({"--port", simulator.SlavePath(), "nonfiscal", "Hola", "Fin"}, out, err);
    simulator.Stop();
    EXPECT_EQ(code, kExitAccepted) << err.str();
    EXPECT_EQ(out.str().find("-- preview --"), std::string::npos);
    EXPECT_NE(simulator.PaperText().find("Hola"), std::string::npos);
}

}  // namespace
}  // namespace corvid::tool
