#include "session/framing.h"

#include <gtest/gtest.h>

#include "support/vb_error_testing.h"

namespace corvid::session {
namespace {

TEST(Framing, BlocksCarryTheXorOfCommandAndEtxAndControlBytesAreTagged) {
    EXPECT_EQ(BuildCommandBlock("w"), std::string("\x02w\x03t"));
    // A check byte may itself be a control code, sent raw.
    EXPECT_EQ(BuildCommandBlock(std::string("\x01\x03", 2)),
              std::string("\x02\x01\x03\x03\x01", 5));
    EXPECT_EQ(CalcXOr("\xFF\x0F"), 0xF0);
    EXPECT_EQ(test_support::ErrorNumberOf([] { CalcXOr(""); }), 5);
    EXPECT_EQ(EscapeString(std::string("\x02\x05\x03\x04\x06\x15\x17", 7)),
              "[STX][ENQ][ETX][EOT][ACK][NAK][ETB]");
    EXPECT_EQ(EscapeString(std::string("a b\n\0\x7F\xE9!", 8)), "a[032]b[010][000]\x7F\xE9!");
}

}  // namespace
}  // namespace corvid::session
