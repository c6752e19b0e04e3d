#include <gtest/gtest.h>

#include "corvid/control_tags.h"
#include "corvid/text_codec.h"

namespace corvid::tool {
namespace {

TEST(ControlTags, TagsBecomeTheirBytesAndOtherTextStays) {
    EXPECT_EQ(ParseControlTags("[STX]w[ETX]"), std::string("\x02w\x03"));
    EXPECT_EQ(ParseControlTags("a[010]b[032]c[000]"), std::string("a\nb c\0", 6));
    EXPECT_EQ(ParseControlTags("[ENQ][EOT][ACK][NAK][ETB]"), std::string("\x05\x04\x06\x15\x17"));
    // Not tags: unknown names, numbers out of range, short or unclosed brackets.
    EXPECT_EQ(ParseControlTags("[XYZ][256][01][STX"), "[XYZ][256][01][STX");
    EXPECT_EQ(ParseControlTags("[[STX]]"), std::string("[\x02]"));
}

TEST(TextCodec, AccentsAndTheEuroSurviveTheRoundTrip) {
    const std::string utf8 = "Descripci\xC3\xB3n \xE2\x82\xAC 5 \xC3\x91";  // Descripción € 5 Ñ
    const std::string cp1252 = Utf8ToCp1252(utf8);
    EXPECT_EQ(cp1252, "Descripci\xF3n \x80 5 \xD1");
    EXPECT_EQ(Cp1252ToUtf8(cp1252), utf8);
}

TEST(TextCodec, WhatTheCodePageLacksBecomesAQuestionMark) {
    EXPECT_EQ(Utf8ToCp1252("\xE2\x9C\x93"), "?");        // a check mark
    EXPECT_EQ(Utf8ToCp1252("\xF0\x9F\x98\x80x"), "?x");  // outside the basic plane
    EXPECT_EQ(Utf8ToCp1252("a\xC3"), "a?");              // cut short
    EXPECT_EQ(Cp1252ToUtf8("\x81"), "\xC2\x81");         // undefined byte kept as itself
}

}  // namespace
}  // namespace corvid::tool
