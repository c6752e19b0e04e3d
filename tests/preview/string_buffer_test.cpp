#include "preview/string_buffer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "automation/vb_error.h"
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

// `count` copies of `c` as text of the buffer's kind of character.
template <typename Buffer>
typename Buffer::String Repeated(std::size_t count, char c) {
    return typename Buffer::String(count, static_cast<typename Buffer::String::value_type>(c));
}

// The chunk rules hold in characters of either kind, not in bytes.
template <typename Buffer>
class BothStringBuffersTest : public ::testing::Test {};
using BothKinds = ::testing::Types<CStringBuffer, Utf16StringBuffer>;
TYPED_TEST_SUITE(BothStringBuffersTest, BothKinds);

TYPED_TEST(BothStringBuffersTest, StartsEmptyAndGrowsByOneChunkOnlyWhenTheTextOutgrowsIt) {
    TypeParam buffer;
    EXPECT_TRUE(buffer.Value().empty());
    EXPECT_EQ(buffer.store(), Repeated<TypeParam>(kChunk, '\0'));

    buffer.Append(Repeated<TypeParam>(kChunk - 1, 'a'));
    buffer.Append(Repeated<TypeParam>(1, 'b'));
    EXPECT_EQ(buffer.store().size(), static_cast<std::size_t>(kChunk));

    buffer.Append(Repeated<TypeParam>(1, 'c'));
    EXPECT_EQ(buffer.store().size(), static_cast<std::size_t>(2 * kChunk));
    EXPECT_EQ(buffer.capacity(), 2 * kChunk);
    EXPECT_EQ(buffer.Value(), Repeated<TypeParam>(kChunk - 1, 'a') + Repeated<TypeParam>(1, 'b') +
                                  Repeated<TypeParam>(1, 'c'));
    EXPECT_EQ(buffer.store().back(), 0);

    // A single long append grows linearly, chunk by chunk, never doubling.
    buffer.Append(Repeated<TypeParam>(3 * kChunk, 'd'));
    EXPECT_EQ(buffer.capacity(), 5 * kChunk);
    EXPECT_EQ(buffer.Value().size(), static_cast<std::size_t>(4 * kChunk + 1));
}

TEST(Utf16StringBufferTest, KeepsUnitsBeyondOneByteAndCountsPositionsInUnits) {
    // Omega, a Han character and a surrogate pair (two units).
    const std::u16string omega = u"\u03A9", han = u"\u4E2D", pair = u"\U0001F600";
    Utf16StringBuffer buffer;
    buffer.Append(omega + pair + u"x");
    buffer.Insert(4, han);
    EXPECT_EQ(buffer.Value(), omega + pair + han + u"x");

    std::int32_t length = 2;
    buffer.Remove(2, length);
    EXPECT_EQ(buffer.Value(), omega + han + u"x");

    buffer.Replace(han, pair);
    EXPECT_EQ(buffer.Value(), omega + pair + u"x");
    EXPECT_EQ(buffer.used(), 4);
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
