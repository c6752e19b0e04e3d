#include <gtest/gtest.h>

#include "serial/port_dump.h"

namespace corvid::serial {
namespace {

// Sixteen bytes a line: a hex column of 48, then the bytes, controls as dots; a short last
// line is padded so the text columns align, and nothing gives no line. (The port's dump
// test shows a whole line and a padded one as they reach the file.)
TEST(HexDumpLines, HexColumnThenTheBytes) {
    struct Case {
        std::string bytes;
        std::vector<std::string> lines;
    };
    const Case cases[] = {
        // STX, blank, "~", DEL, e-acute (Windows-1252), ETX, NUL.
        {std::string("\x02 ~\x7F\xE9\x03\x00", 7),
         {"02 20 7E 7F E9 03 00 " + std::string(27, ' ') + ". ~\x7F\xE9.."}},
        {"", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.bytes);
        EXPECT_EQ(HexDumpLines(c.bytes), c.lines);
    }
}

}  // namespace
}  // namespace corvid::serial
