#include <gtest/gtest.h>

#include "serial/port_dump.h"

namespace corvid::serial {
namespace {

TEST(HexDumpLines, FullLineHasHexColumnOf48ThenTheBytes) {
    const auto lines = HexDumpLines("0123456789ABCDEF");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0],
              "30 31 32 33 34 35 36 37 38 39 41 42 43 44 45 46 "
              "0123456789ABCDEF");
}

TEST(HexDumpLines, ControlBytesShowAsDotsAndOthersAsThemselves) {
    // STX, blank, "~", DEL, e-acute (Windows-1252), ETX, NUL.
    const auto lines = HexDumpLines(std::string("\x02 ~\x7F\xE9\x03\x00", 7));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0], "02 20 7E 7F E9 03 00 " + std::string(27, ' ') + ". ~\x7F\xE9..");
}

TEST(HexDumpLines, PartialLastLineIsPaddedSoTextColumnsAlign) {
    const auto lines = HexDumpLines("ABCDEFGHIJKLMNOPQR");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].substr(48), "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(lines[1], "51 52 " + std::string(42, ' ') + "QR");
    EXPECT_EQ(lines[0].size(), 64u);
    EXPECT_EQ(lines[1].find("QR"), 48u);
}

TEST(HexDumpLines, ExactMultipleOf16LeavesNoEmptyLineAndNothingGivesNone) {
    EXPECT_EQ(HexDumpLines(std::string(32, '\xFF')).size(), 2u);
    EXPECT_EQ(HexDumpLines(std::string(32, '\xFF'))[1].substr(0, 6), "FF FF ");
    EXPECT_TRUE(HexDumpLines("").empty());
}

}  // namespace
}  // namespace corvid::serial
