// CStringBuffer: a text that grows cheaply. The store is pre-filled with NUL characters and
// grows in fixed 65536-character chunks; new text is written into it in place, so appending
// many lines never re-copies what is already held. Positions are 1-based, as a VB host
// sees them; run-time errors (5 invalid argument, 6 overflow) are raised as VbError.
//
// The same rules hold for two kinds of character: bytes of the printer's code page
// (CStringBuffer, what the library builds its texts in) and UTF-16 units
// (Utf16StringBuffer, the host's own text at the COM boundary). Positions, lengths and
// chunks count characters of that kind.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>

#include "automation/variant.h"

namespace corvid::preview {

template <typename CharT>
class BasicStringBuffer {
  public:
    using String = std::basic_string<CharT>;
    static constexpr std::int32_t kChunk = 65536;

    BasicStringBuffer();

    void Append(const String& s);
    // Appends the value's text (CStr); a value without one raises the conversion error.
    void AppendV(const automation::Variant& v) requires std::same_as<CharT, char>;
    // Removes Length characters from Index. When the removal reaches the end (including when
    // only the last character would be left), everything from Index is cut and the count
    // actually removed is written back into Length.
    void Remove(std::int32_t Index, std::int32_t& Length);
    // Inserts Text before position Index; Index may be at most the length + 1 (else error 5).
    void Insert(std::int32_t Index, const String& Text);
    // Replaces every occurrence in the whole store, padding included; the text then ends at
    // the first NUL (or takes the whole store when it starts with one).
    void Replace(const String& orgText, const String& NewText);

    // The default member: the text held.
    String Value() const;
    // Starts over with `value`. A store that has grown keeps its size and old contents past
    // the new text, while the capacity counts one chunk again.
    void SetValue(const String& value);

    // Observers of the private state, for diagnostics.
    const String& store() const { return store_; }
    std::int32_t used() const { return used_; }
    std::int32_t capacity() const { return capacity_; }

  private:
    void Initialise();
    void EnsureCapacity(std::int32_t n);

    String store_;
    std::int32_t used_ = 0;
    std::int32_t capacity_ = 0;
};

extern template class BasicStringBuffer<char>;
extern template class BasicStringBuffer<char16_t>;

using CStringBuffer = BasicStringBuffer<char>;
using Utf16StringBuffer = BasicStringBuffer<char16_t>;

}  // namespace corvid::preview
