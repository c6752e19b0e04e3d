#include <gtest/gtest.h>

#include "serial/port_dump.h"

namespace corvid::serial {
namespace {

// Sixteen bytes a line: a hex column of 48, then the bytes, controls as dots; a short last
// line is padded so the text columns align, and nothing gives no line.
TEST(HexDumpLines, HexColumnThenTheBytes) {
    std::string all_ff;
    for (int i = 0; i < 16; ++i) all_ff += "FF ";
    all_ff += std::string(16, '\xFF');
    struct Case {
        std::string bytes;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        {"0123456789ABCDEF", {"30 31 32 33 34 35 36 37 38 39 41 42 43 44 45 46 0123456789ABCDEF"}},
        // STX, blank, "~", DEL, e-acute (Windows-1252), ETX, NUL.
        {std::string("\x02 ~\x7F\xE9\x03\x00", 7),
         {"02 20 7E 7F E9 03 00 " + std::string(27, ' ') + ". ~\x7F\xE9.."}},
        {"ABCDEFGHIJKLMNOPQR",
         {"41 42 43 44 45 46 47 48 49 4A 4B 4C 4D 4E 4F 50 ABCDEFGHIJKLMNOP",
          "51 52 " + std::string(42, ' ') + "QR"}},
        {std::string(32, '\xFF'), {all_ff, all_ff}},
        {"", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.bytes);
        EXPECT_EQ(HexDumpLines(c.bytes), c.lines);
    }
}

}  // namespace
}  // namespace corvid::serial
