#include "preview/string_buffer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <tuple>
#include <utility>

#include "support/vb_error_testing.h"

namespace corvid::preview {
namespace {

using test_support::ErrorNumberOf;

constexpr std::int32_t kChunk = CStringBuffer::kChunk;

CStringBuffer Holding(const std::string& text) {
    CStringBuffer buffer;
    buffer.Append(text);
    return buffer;
}

// A buffer grows by one chunk only when the text outgrows it, and linearly, never doubling;
// the chunk rules hold in characters of either kind, not in bytes.
TEST(StringBufferTest, GrowsByOneChunkOnlyWhenTheTextOutgrowsIt) {
    const auto check = [](auto buffer) {
        using String = typename decltype(buffer)::String;
        buffer.Append(String(kChunk, 'a'));
        EXPECT_EQ(buffer.capacity(), kChunk);
        buffer.Append(String(1, 'c'));
        EXPECT_EQ(buffer.capacity(), 2 * kChunk);
        buffer.Append(String(3 * kChunk, 'd'));
        EXPECT_EQ(buffer.capacity(), 5 * kChunk);
        EXPECT_EQ(buffer.Value(), String(kChunk, 'a') + String(1, 'c') + String(3 * kChunk, 'd'));
    };
    check(CStringBuffer{});
    check(Utf16StringBuffer{});
}

TEST(StringBufferTest, InsertAcrossAChunkGrowsAndKeepsTheTail) {
    EXPECT_EQ(ErrorNumberOf([] { Holding("abc").Insert(0, "?"); }), 5);
    CStringBuffer full = Holding("head" + std::string(kChunk - 5, '.') + "T");
    full.Insert(5, "0123456789");  // crosses a chunk: grows and keeps the tail
    EXPECT_EQ(full.Value(), "head0123456789" + std::string(kChunk - 5, '.') + "T");
}

// Removing up to or past the end cuts from the index and writes the count removed back.
TEST(StringBufferTest, RemoveClosesTheGapAndWritesTheCountBack) {
    const std::tuple<std::int32_t, std::int32_t, const char*, std::int32_t, int> cases[] = {
        {1, 3, "def", 3, 0},    {4, 2, "abc", 3, 0},
        {2, 100, "a", 5, 0},    {0, 1, "abcdef", 1, 5},
        {9, 1, "abcdef", 1, 5}, {std::numeric_limits<std::int32_t>::max(), 1, "abcdef", 1, 6}};
    for (const auto& [index, length, left, removed, error] : cases) {
        CStringBuffer buffer = Holding("abcdef");
        std::int32_t count = length;
        EXPECT_EQ(ErrorNumberOf([&] { buffer.Remove(index, count); }), error) << index;
        EXPECT_EQ(buffer.Value(), left) << index << "," << length;
        if (error == 0) {
            EXPECT_EQ(count, removed) << index << "," << length;
        }
    }
}

// Replace works on the whole store and the text then ends at the first NUL; a grown buffer
// set to a new value keeps its store, and the next growth adds to the store as it is.
TEST(StringBufferTest, ReplaceAndSetValueWorkOnTheWholeStore) {
    CStringBuffer buffer = Holding("a-b-c");
    buffer.Replace("-", "+-+");
    EXPECT_EQ(buffer.Value(), "a+-+b+-+c");
    EXPECT_EQ(buffer.capacity(), kChunk + 4);
    buffer.Replace("b", std::string(1, '\0'));
    EXPECT_EQ(buffer.Value(), "a+-+");
    CStringBuffer no_nul = Holding("abc");
    no_nul.Replace(std::string(1, '\0'), "");
    EXPECT_EQ(ErrorNumberOf([&] { no_nul.Value(); }), 5);

    CStringBuffer grown = Holding(std::string(kChunk + 10, 'o'));
    grown.SetValue("hello");
    EXPECT_EQ(grown.capacity(), kChunk);
    grown.Append(std::string(kChunk - 4, 'z'));
    EXPECT_EQ(grown.store().size(), static_cast<std::size_t>(3 * kChunk));
    EXPECT_EQ(grown.Value(), "hello" + std::string(kChunk - 4, 'z'));
}

// AppendV appends a value's text as CStr gives it; an error value or Null is a type mismatch.
TEST(StringBufferTest, AppendVAppendsTheValuesText) {
    CStringBuffer buffer;
    buffer.AppendV(std::string("n="));
    buffer.AppendV(std::int16_t{42});
    buffer.AppendV(true);
    EXPECT_EQ(buffer.Value(), "n=42True");
    EXPECT_EQ(ErrorNumberOf([&] { buffer.AppendV(automation::ErrorValue{5}); }), 13);
    EXPECT_EQ(ErrorNumberOf([&] { buffer.AppendV(automation::Null{}); }), 13);
}

}  // namespace
}  // namespace corvid::preview
