#include "preview/string_buffer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "automation/vb_error.h"

namespace corvid::preview {
namespace {

using automation::VbError;

constexpr std::int32_t kChunk = CStringBuffer::kChunk;

// Runs `action` and returns the number of the VbError it raised (0 when none).
template <typename Action>
std::int32_t ErrorNumberOf(Action action) {
    try {
        action();
    } catch (const VbError& error) {
        return error.number();
    }
    return 0;
}

CStringBuffer Holding(const std::string& text) {
    CStringBuffer buffer;
    buffer.Append(text);
    return buffer;
}

TEST(StringBufferTest, StartsEmptyOverOneChunkOfNuls) {
    CStringBuffer buffer;
    EXPECT_EQ(buffer.Value(), "");
    EXPECT_EQ(buffer.store(), std::string(kChunk, '\0'));
    EXPECT_EQ(buffer.capacity(), kChunk);
}

TEST(StringBufferTest, GrowsByOneChunkOnlyWhenTheTextOutgrowsIt) {
    CStringBuffer buffer;
    buffer.Append(std::string(kChunk - 1, 'a'));
    buffer.Append("b");
    EXPECT_EQ(buffer.store().size(), static_cast<std::size_t>(kChunk));

    buffer.Append("c");
    EXPECT_EQ(buffer.store().size(), static_cast<std::size_t>(2 * kChunk));
    EXPECT_EQ(buffer.capacity(), 2 * kChunk);
    EXPECT_EQ(buffer.Value(), std::string(kChunk - 1, 'a') + "bc");
    EXPECT_EQ(buffer.store().back(), '\0');

    // A single long append grows linearly, chunk by chunk, never doubling.
    buffer.Append(std::string(3 * kChunk, 'd'));
    EXPECT_EQ(buffer.capacity(), 5 * kChunk);
    EXPECT_EQ(buffer.Value().size(), static_cast<std::size_t>(4 * kChunk + 1));
}

TEST(StringBufferTest, AppendVAppendsTheValuesText) {
    CStringBuffer buffer;
    buffer.AppendV(std::string("n="));
    buffer.AppendV(std::int16_t{42});
    buffer.AppendV(true);
    EXPECT_EQ(buffer.Value(), "n=42True");

    EXPECT_EQ(ErrorNumberOf([&] { buffer.AppendV(automation::ErrorValue{5}); }), 13);
    EXPECT_EQ(ErrorNumberOf([&] { buffer.AppendV(automation::Null{}); }), 13);
    EXPECT_EQ(buffer.Value(), "n=42True");
}

TEST(StringBufferTest, InsertsAnywhereUpToOnePastTheEnd) {
    CStringBuffer buffer = Holding("abcdef");
    buffer.Insert(3, "XY");
    EXPECT_EQ(buffer.Value(), "abXYcdef");
    buffer.Insert(1, ">");
    EXPECT_EQ(buffer.Value(), ">abXYcdef");
    buffer.Insert(10, "<");  // one past the end: same as Append
    EXPECT_EQ(buffer.Value(), ">abXYcdef<");

    EXPECT_EQ(ErrorNumberOf([&] { buffer.Insert(12, "?"); }), 5);
    EXPECT_EQ(buffer.Value(), ">abXYcdef<");
    EXPECT_EQ(ErrorNumberOf([&] { buffer.Insert(0, "?"); }), 5);
}

TEST(StringBufferTest, InsertThatCrossesAChunkGrowsAndKeepsTheTail) {
    CStringBuffer buffer = Holding("head" + std::string(kChunk - 5, '.') + "T");
    buffer.Insert(5, "0123456789");
    EXPECT_EQ(buffer.capacity(), 2 * kChunk);
    EXPECT_EQ(buffer.Value(), "head0123456789" + std::string(kChunk - 5, '.') + "T");
}

TEST(StringBufferTest, RemoveInsideTheTextClosesTheGap) {
    CStringBuffer front = Holding("abcdef");
    std::int32_t length = 3;
    front.Remove(1, length);
    EXPECT_EQ(front.Value(), "def");
    EXPECT_EQ(length, 3);

    CStringBuffer middle = Holding("abcdef");
    length = 2;
    middle.Remove(2, length);
    EXPECT_EQ(middle.Value(), "adef");
    middle.Append("gh");
    EXPECT_EQ(middle.Value(), "adefgh");
}

TEST(StringBufferTest, RemoveReachingTheEndCutsFromIndexAndWritesTheCountBack) {
    // 4 + 2 = 6 characters used: the last character goes too.
    CStringBuffer buffer = Holding("abcdef");
    std::int32_t length = 2;
    buffer.Remove(4, length);
    EXPECT_EQ(buffer.Value(), "abc");
    EXPECT_EQ(length, 3);

    length = 100;
    buffer.Remove(2, length);
    EXPECT_EQ(buffer.Value(), "a");
    EXPECT_EQ(length, 2);

    buffer.Append("z");
    EXPECT_EQ(buffer.Value(), "az");
    EXPECT_EQ(buffer.store().substr(0, 4), std::string("az\0\0", 4));
}

TEST(StringBufferTest, RemoveRaisesOnBadPositionsAndOverflow) {
    CStringBuffer buffer = Holding("abcdef");
    std::int32_t length = 2;
    EXPECT_EQ(ErrorNumberOf([&] { buffer.Remove(0, length); }), 5);
    length = 1;
    EXPECT_EQ(ErrorNumberOf([&] { buffer.Remove(9, length); }), 5);
    length = 1;
    EXPECT_EQ(
        ErrorNumberOf([&] { buffer.Remove(std::numeric_limits<std::int32_t>::max(), length); }), 6);
    EXPECT_EQ(buffer.Value(), "abcdef");
}

TEST(StringBufferTest, ReplaceWorksOnTheWholeStoreAndRecountsTheText) {
    CStringBuffer buffer = Holding("a-b-c");
    buffer.Replace("-", "+-+");
    EXPECT_EQ(buffer.Value(), "a+-+b+-+c");
    EXPECT_EQ(buffer.capacity(), kChunk + 4);

    // The new text may hold a NUL: the text then ends there.
    buffer.Replace("b", std::string(1, '\0'));
    EXPECT_EQ(buffer.Value(), "a+-+");
}

TEST(StringBufferTest, ReplaceOnAnEmptyBufferTakesTheWholeStore) {
    CStringBuffer buffer;
    buffer.Replace("x", "y");
    EXPECT_EQ(buffer.Value(), std::string(kChunk, '\0'));
}

TEST(StringBufferTest, ReplaceThatLeavesNoNulMakesValueFail) {
    CStringBuffer buffer = Holding("abc");
    buffer.Replace(std::string(1, '\0'), "");
    EXPECT_EQ(buffer.store(), "abc");
    EXPECT_EQ(ErrorNumberOf([&] { buffer.Value(); }), 5);

    buffer.SetValue("new");
    EXPECT_EQ(buffer.Value(), "new");
}

TEST(StringBufferTest, SetValueOnAGrownBufferKeepsTheLargerStore) {
    CStringBuffer buffer = Holding(std::string(kChunk + 10, 'o'));
    buffer.SetValue("hello");
    EXPECT_EQ(buffer.Value(), "hello");
    EXPECT_EQ(buffer.store().size(), static_cast<std::size_t>(2 * kChunk));
    EXPECT_EQ(buffer.store()[5], 'o');
    EXPECT_EQ(buffer.capacity(), kChunk);

    // The next growth adds to the store as it is.
    buffer.Append(std::string(kChunk - 4, 'z'));
    EXPECT_EQ(buffer.store().size(), static_cast<std::size_t>(3 * kChunk));
    EXPECT_EQ(buffer.Value(), "hello" + std::string(kChunk - 4, 'z'));
}

}  // namespace
}  // namespace corvid::preview
