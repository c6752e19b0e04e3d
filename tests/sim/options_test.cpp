// The command line of corvid-sim.
#include "sim/options.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace corvid::sim {
namespace {

TEST(OptionsTest, PrinterAndFaultOptionsReachTheConfiguration) {
    Options options =
        ParseOptions({"--variant", "dt230",     "--layout",    "long", "--sts1",          "0x61",
                      "--sts2",    "8",         "--nak",       "7",    "--silent-enq",    "2",
                      "--chunk",   "1",         "--delay",     "50",   "--garbage-bytes", "ff00",
                      "--link",    "/tmp/com5", "--transcript"});
    const SimulatorConfig& config = options.config;
    EXPECT_EQ(config.printer.variant(), Variant::DT230);
    EXPECT_EQ(config.printer.s1Layout, S1Layout::Long);
    EXPECT_EQ(config.printer.sts1, 0x61);
    EXPECT_EQ(config.printer.sts2, 8);
    EXPECT_EQ(config.faults.nakBlocks, 7);
    EXPECT_EQ(config.faults.silentEnqs, 2);
    EXPECT_EQ(config.faults.chunkSize, 1u);
    EXPECT_EQ(config.faults.delay.count(), 50);
    EXPECT_EQ(config.faults.garbageBytes, std::string("\xFF\x00", 2));
    EXPECT_EQ(config.linkPath, "/tmp/com5");
    EXPECT_TRUE(options.printTranscript);
}

TEST(OptionsTest, GivenSerialWinsOverVariant) {
    Options options = ParseOptions({"--serial", "Z1F0000009", "--variant", "hka112"});
    EXPECT_EQ(options.config.printer.serial, "Z1F0000009");
}

TEST(OptionsTest, BadValuesAreRefused) {
    EXPECT_THROW(ParseOptions({"--sts1", "256"}), std::invalid_argument);
    EXPECT_THROW(ParseOptions({"--chunk", "0"}), std::invalid_argument);
    EXPECT_THROW(ParseOptions({"--nak"}), std::invalid_argument);
    EXPECT_THROW(ParseOptions({"--nak", "3x"}), std::invalid_argument);
    EXPECT_THROW(ParseOptions({"--variant", "tm220"}), std::invalid_argument);
    EXPECT_THROW(ParseOptions({"--garbage-bytes", "f"}), std::invalid_argument);
    EXPECT_THROW(ParseOptions({"--frobnicate"}), std::invalid_argument);
}

}  // namespace
}  // namespace corvid::sim
