// The paper shows the printer's Windows-1252 bytes as UTF-8; every byte stands for one
// character, the five the code page leaves undefined for the C1 control of their value.
#include "sim/cp1252.h"

#include <gtest/gtest.h>

namespace corvid::sim {
namespace {

TEST(Cp1252ToUtf8, EveryByteBecomesItsCharacter) {
    const std::pair<std::string, std::string> cases[] = {
        {"PI\xD1"
         "A",
         "PI\u00D1A"},
        {"\x80\x8A\x9F", "\u20AC\u0160\u0178"},
        {"\x81\x8D\x8F\x90\x9D", "\u0081\u008D\u008F\u0090\u009D"},
        {"\xA0\xE9\xFF", "\u00A0\u00E9\u00FF"},
        {std::string("\x00\x7F", 2), std::string("\x00\x7F", 2)},
    };
    for (const auto& [bytes, text] : cases) EXPECT_EQ(Cp1252ToUtf8(bytes), text) << text;
}

}  // namespace
}  // namespace corvid::sim
