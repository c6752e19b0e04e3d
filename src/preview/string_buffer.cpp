#include "preview/string_buffer.h"

#include <algorithm>
#include <limits>

#include "automation/vb_error.h"
#include "preview/checked_arithmetic.h"

namespace corvid::preview {
namespace {

// The VB string operations the buffer is written in, for either kind of character: a
// position before 1 or a negative count raises error 5.

[[noreturn]] void RaiseInvalidArgument() {
    throw automation::VbError::Standard(automation::vb_errors::kInvalidProcedureCall);
}

template <typename CharT>
using String = std::basic_string<CharT>;

template <typename CharT>
std::int32_t Len(const String<CharT>& text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        throw automation::VbError::Standard(automation::vb_errors::kOverflow);
    }
    return static_cast<std::int32_t>(text.size());
}

// Mid$(text, start, length): empty past the end.
template <typename CharT>
String<CharT> Mid(const String<CharT>& text, std::int32_t start, std::int32_t length) {
    if (start < 1 || length < 0) RaiseInvalidArgument();
    const auto offset = static_cast<std::size_t>(start - 1);
    if (offset >= text.size()) return {};
    return text.substr(offset, static_cast<std::size_t>(length));
}

// String$(count, Chr(0)).
template <typename CharT>
String<CharT> Nuls(std::int32_t count) {
    if (count < 0) RaiseInvalidArgument();
    return String<CharT>(static_cast<std::size_t>(count), CharT{});
}

// The Mid statement, Mid(target, start, length) = replacement: overwrites at most `length`
// characters from `start`, clipped at the end, never changing the target's length. A start
// past the end raises error 5 unless there is nothing to write.
template <typename CharT>
void MidAssign(String<CharT>& target, std::int32_t start, const String<CharT>& replacement,
               std::int32_t length = std::numeric_limits<std::int32_t>::max()) {
    if (start < 1 || length < 0) RaiseInvalidArgument();
    std::size_t count = std::min(replacement.size(), static_cast<std::size_t>(length));
    if (count == 0) return;
    const auto offset = static_cast<std::size_t>(start - 1);
    if (offset >= target.size()) RaiseInvalidArgument();
    count = std::min(count, target.size() - offset);
    target.replace(offset, count, replacement, 0, count);
}

}  // namespace

template <typename CharT>
BasicStringBuffer<CharT>::BasicStringBuffer() {
    Initialise();
}

template <typename CharT>
void BasicStringBuffer<CharT>::Initialise() {
    if (store_.empty()) store_.assign(kChunk, CharT{});
    capacity_ = kChunk;
    used_ = 0;
}

template <typename CharT>
void BasicStringBuffer<CharT>::EnsureCapacity(std::int32_t n) {
    const std::int32_t needed = Add32(used_, n);
    while (needed > capacity_) {
        store_.append(kChunk, CharT{});
        capacity_ = Add32(capacity_, kChunk);
    }
}

template <typename CharT>
void BasicStringBuffer<CharT>::Append(const String& s) {
    const std::int32_t n = Len(s);
    EnsureCapacity(n);
    MidAssign(store_, Add32(used_, 1), s);
    used_ = Add32(used_, n);
}

template <typename CharT>
void BasicStringBuffer<CharT>::AppendV(
    const automation::Variant& v) requires std::same_as<CharT, char> {
    // clang 14 instantiates constrained members in the explicit instantiation below too.
    if constexpr (std::same_as<CharT, char>) Append(automation::CStr(v));
}

template <typename CharT>
void BasicStringBuffer<CharT>::Insert(std::int32_t Index, const String& Text) {
    if (Index > Add32(used_, 1)) RaiseInvalidArgument();
    const std::int32_t n = Len(Text);
    if (Index > used_) {
        Append(Text);
        return;
    }
    EnsureCapacity(n);
    const auto tail = Mid(store_, Index, Add32(Sub32(used_, Index), 1));
    MidAssign(store_, Add32(Index, n), tail);
    MidAssign(store_, Index, Text);
    used_ = Add32(used_, n);
}

template <typename CharT>
void BasicStringBuffer<CharT>::Remove(std::int32_t Index, std::int32_t& Length) {
    if (Add32(Index, Length) < used_) {
        // The block moved down is longer than the tail on purpose: it drags NUL padding along.
        const auto block = Mid(store_, Add32(Index, Length), Add32(Sub32(used_, Index), Length));
        MidAssign(store_, Index, block);
        MidAssign(store_, Add32(Sub32(used_, Length), 1), Nuls<CharT>(Length), Length);
        used_ = Sub32(used_, Length);
        return;
    }
    Length = Sub32(Add32(used_, 1), Index);
    MidAssign(store_, Index, Nuls<CharT>(Length), Length);
    used_ = Sub32(Index, 1);
}

template <typename CharT>
void BasicStringBuffer<CharT>::Replace(const String& orgText, const String& NewText) {
    if (!orgText.empty()) {
        String result;
        result.reserve(store_.size());
        std::size_t from = 0;
        for (std::size_t at = store_.find(orgText); at != String::npos;
             at = store_.find(orgText, from)) {
            result.append(store_, from, at - from);
            result += NewText;
            from = at + orgText.size();
        }
        result.append(store_, from, String::npos);
        store_ = std::move(result);
    }
    capacity_ = Len(store_);
    const std::size_t nul = store_.find(CharT{});
    used_ = nul == String::npos ? -1 : static_cast<std::int32_t>(nul);
    if (used_ == 0) used_ = capacity_;
}

template <typename CharT>
typename BasicStringBuffer<CharT>::String BasicStringBuffer<CharT>::Value() const {
    // Left$ refuses a negative count: what a store without NUL leaves after Replace.
    if (used_ < 0) RaiseInvalidArgument();
    return store_.substr(0, static_cast<std::size_t>(used_));
}

template <typename CharT>
void BasicStringBuffer<CharT>::SetValue(const String& value) {
    Initialise();
    Append(value);
}

template class BasicStringBuffer<char>;
template class BasicStringBuffer<char16_t>;

}  // namespace corvid::preview
