#include "text/windows_1252.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid::text {
namespace {

// Bytes and the same text as UTF-8 and as wide text: each converts into the others.
TEST(Windows1252, EveryByteHasOneCharacterAndComesBack) {
    struct Row {
        std::string bytes, utf8;
        std::wstring wide;
    };
    const Row rows[] = {
        {"Descripci\xF3n 5 \xD1", "Descripci\xC3\xB3n 5 \xC3\x91", L"Descripci\u00F3n 5 \u00D1"},
        {"\x80\x9F\xA0\xFF", "\xE2\x82\xAC\xC5\xB8\xC2\xA0\xC3\xBF", L"\u20AC\u0178\u00A0\u00FF"},
        {"\x8A\x9A\x8C\x9C\x8E\x9E", "\xC5\xA0\xC5\xA1\xC5\x92\xC5\x93\xC5\xBD\xC5\xBE",
         L"\u0160\u0161\u0152\u0153\u017D\u017E"},
        {"\x83\x85\x88\x89\x91\x92\x93\x94\x95\x96\x97\x98\x99\x8B\x9B\x84\x82\x86\x87",
         "\xC6\x92\xE2\x80\xA6\xCB\x86\xE2\x80\xB0\xE2\x80\x98\xE2\x80\x99\xE2\x80\x9C\xE2\x80\x9D"
         "\xE2\x80\xA2\xE2\x80\x93\xE2\x80\x94\xCB\x9C\xE2\x84\xA2\xE2\x80\xB9\xE2\x80\xBA"
         "\xE2\x80\x9E\xE2\x80\x9A\xE2\x80\xA0\xE2\x80\xA1",
         L"\u0192\u2026\u02C6\u2030\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u2039"
         L"\u203A\u201E\u201A\u2020\u2021"},
        // The bytes the code page leaves undefined stand for the C1 controls of their value.
        {"\x81\x8D\x8F\x90\x9D", "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D",
         L"\u0081\u008D\u008F\u0090\u009D"},
        {std::string("a\0\x7F", 3), std::string("a\0\x7F", 3), std::wstring(L"a\0\x7F", 3)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.utf8);
        EXPECT_EQ(Utf8FromWindows1252(row.bytes), row.utf8);
        EXPECT_EQ(Windows1252FromUtf8(row.utf8), row.bytes);
        EXPECT_EQ(WideFromWindows1252(row.bytes), row.wide);
        EXPECT_EQ(Windows1252FromWide(row.wide), row.bytes);
    }
}

TEST(Windows1252, WhatHasNoByteBecomesOneQuestionMark) {
    struct Row {
        std::string utf8, bytes;
    };
    const Row fromUtf8[] = {
        {"\xE2\x9C\x93", "?"},            // a check mark
        {"\xF0\x9F\x98\x80x", "?x"},      // outside the basic plane
        {"\xC5\x81", "?"},                // a letter of another code page
        {"a\xC3", "a?"},                  // cut short at the end
        {"\xE2\x82x\xC3\xB1", "?x\xF1"},  // cut short before more text
        {"\x80\xFF", "??"},               // bytes that start no character
    };
    for (const Row& row : fromUtf8) {
        EXPECT_EQ(Windows1252FromUtf8(row.utf8), row.bytes) << row.bytes;
    }
    EXPECT_EQ(Windows1252FromWide(L"\u2713 \U0001F600x \xD800"), "? ?x ?");
}

}  // namespace
}  // namespace corvid::text
