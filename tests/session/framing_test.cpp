#include "session/framing.h"

#include <gtest/gtest.h>

#include "automation/vb_error.h"

namespace corvid::session {
namespace {

TEST(Framing, BlockCarriesTheXorOfCommandAndEtx) {
    EXPECT_EQ(BuildCommandBlock("w"), std::string("\x02w\x03t"));
    // A check byte may itself be a control code, sent raw.
    const std::string block = BuildCommandBlock(std::string("\x01\x03", 2));
    EXPECT_EQ(block, std::string("\x02\x01\x03\x03\x01", 5));
    EXPECT_EQ(CalcXOr("\xFF\x0F"), 0xF0);
}

TEST(Framing, XorOfNothingIsAnInvalidCall) {
    try {
        CalcXOr("");
        FAIL();
    } catch (const automation::VbError& e) {
        EXPECT_EQ(e.number(), 5);
    }
}

TEST(Framing, ControlBytesAreTaggedAndEverythingElseKept) {
    EXPECT_EQ(EscapeString(std::string("\x02\x05\x03\x04\x06\x15\x17", 7)),
              "[STX][ENQ][ETX][EOT][ACK][NAK][ETB]");
    EXPECT_EQ(EscapeString(std::string("a b\n\0", 5)), "a[032]b[010][000]");
    EXPECT_EQ(EscapeString("\x7F\xE9!"), "\x7F\xE9!");
}

}  // namespace
}  // namespace corvid::session
