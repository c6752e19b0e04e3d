#include "preview/string_buffer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <tuple>
#include <utility>

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
    EXPECT_EQ(buffer.store(), Repeated<TypeParam>(kChunk, '\0'));
    buffer.Append(Repeated<TypeParam>(kChunk, 'a'));
    EXPECT_EQ(buffer.store().size(), static_cast<std::size_t>(kChunk));
    buffer.Append(Repeated<TypeParam>(1, 'c'));
    EXPECT_EQ(buffer.capacity(), 2 * kChunk);
    EXPECT_EQ(buffer.Value(), Repeated<TypeParam>(kChunk, 'a') + Repeated<TypeParam>(1, 'c'));
    // A single long append grows linearly, chunk by chunk, never doubling.
    buffer.Append(Repeated<TypeParam>(3 * kChunk, 'd'));
    EXPECT_EQ(buffer.capacity(), 5 * kChunk);
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
    buffer.Replace(han, pair);
    EXPECT_EQ(buffer.Value(), omega + pair + u"x");
}

TEST(StringBufferTest, AppendVAppendsTheValuesText) {
    CStringBuffer buffer;
    buffer.AppendV(std::string("n="));
    buffer.AppendV(std::int16_t{42});
    buffer.AppendV(true);
    EXPECT_EQ(ErrorNumberOf([&] { buffer.AppendV(automation::Null{}); }), 13);
    EXPECT_EQ(buffer.Value(), "n=42True");
}

TEST(StringBufferTest, InsertsAnywhereUpToOnePastTheEnd) {
    CStringBuffer buffer = Holding("abcdef");
    buffer.Insert(3, "XY");
    buffer.Insert(1, ">");
    buffer.Insert(10, "<");  // one past the end: same as Append
    EXPECT_EQ(buffer.Value(), ">abXYcdef<");
    EXPECT_EQ(ErrorNumberOf([&] { buffer.Insert(12, "?"); }), 5);
    EXPECT_EQ(ErrorNumberOf([&] { buffer.Insert(0, "?"); }), 5);
    EXPECT_EQ(buffer.Value(), ">abXYcdef<");

    CStringBuffer full = Holding("head" + std::string(kChunk - 5, '.') + "T");
    full.Insert(5, "0123456789");  // crosses a chunk: grows and keeps the tail
    EXPECT_EQ(full.capacity(), 2 * kChunk);
    EXPECT_EQ(full.Value(), "head0123456789" + std::string(kChunk - 5, '.') + "T");
}

// Removing up to or past the end cuts from the index and writes the count removed back.
TEST(StringBufferTest, RemoveClosesTheGapAndWritesTheCountBack) {
    const std::tuple<std::int32_t, std::int32_t, const char*, std::int32_t> cases[] = {
        {1, 3, "def", 3}, {2, 2, "adef", 2}, {4, 2, "abc", 3}, {2, 100, "a", 5}};
    for (const auto& [index, length, left, removed] : cases) {
        CStringBuffer buffer = Holding("abcdef");
        std::int32_t count = length;
        buffer.Remove(index, count);
        EXPECT_EQ(buffer.Value(), left) << index << "," << length;
        EXPECT_EQ(count, removed) << index << "," << length;
        buffer.Append("z");
        EXPECT_EQ(buffer.Value(), left + std::string("z"));
    }
    CStringBuffer buffer = Holding("abcdef");
    for (const auto& [index, error] :
         {std::pair{0, 5}, {9, 5}, {std::numeric_limits<std::int32_t>::max(), 6}}) {
        std::int32_t length = 1;
        EXPECT_EQ(ErrorNumberOf([&] { buffer.Remove(index, length); }), error) << index;
    }
    EXPECT_EQ(buffer.Value(), "abcdef");
}

TEST(StringBufferTest, ReplaceWorksOnTheWholeStoreAndRecountsTheText) {
    CStringBuffer buffer = Holding("a-b-c");
    buffer.Replace("-", "+-+");
    EXPECT_EQ(buffer.Value(), "a+-+b+-+c");
    EXPECT_EQ(buffer.capacity(), kChunk + 4);
    buffer.Replace("b", std::string(1, '\0'));  // the text now ends at the NUL
    EXPECT_EQ(buffer.Value(), "a+-+");

    CStringBuffer empty;
    empty.Replace("x", "y");
    EXPECT_EQ(empty.Value(), std::string(kChunk, '\0'));

    CStringBuffer no_nul = Holding("abc");
    no_nul.Replace(std::string(1, '\0'), "");
    EXPECT_EQ(ErrorNumberOf([&] { no_nul.Value(); }), 5);
    no_nul.SetValue("new");
    EXPECT_EQ(no_nul.Value(), "new");
}

TEST(StringBufferTest, SetValueOnAGrownBufferKeepsTheLargerStore) {
    CStringBuffer buffer = Holding(std::string(kChunk + 10, 'o'));
    buffer.SetValue("hello");
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
