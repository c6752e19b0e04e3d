#include "corvid/control_tags.h"

#include <gtest/gtest.h>

#include "text/windows_1252.h"

namespace corvid::tool {
namespace {

TEST(ControlTags, TagsBecomeTheirBytesAndOtherTextStays) {
    EXPECT_EQ(ParseControlTags("[STX]w[ETX]"), std::string("\x02w\x03"));
    EXPECT_EQ(ParseControlTags("a[010]b[032]c[000]"), std::string("a\nb c\0", 6));
    EXPECT_EQ(ParseControlTags("[ENQ][EOT][ACK][NAK][ETB]"), std::string("\x05\x04\x06\x15\x17"));
    // Not tags: unknown names, numbers out of range, short or unclosed brackets.
    EXPECT_EQ(ParseControlTags("[XYZ][256][01][STX"), "[XYZ][256][01][STX");
}

}  // namespace
}  // namespace corvid::tool
