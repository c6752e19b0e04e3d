// The simulator keeps its own Windows-1252 table, as an independent witness of the
// library's: the two must read every byte alike, the five undefined ones included.
#include "sim/cp1252.h"

#include <gtest/gtest.h>

#include "text/windows_1252.h"

namespace corvid::sim {
namespace {

TEST(Cp1252ToUtf8, ReadsEveryByteAsTheLibraryDoes) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        EXPECT_EQ(Cp1252ToUtf8(one), text::Utf8FromWindows1252(one)) << "byte " << byte;
    }
    EXPECT_EQ(Cp1252ToUtf8("\x80\x81"), "\xE2\x82\xAC\xC2\x81");
}

}  // namespace
}  // namespace corvid::sim
