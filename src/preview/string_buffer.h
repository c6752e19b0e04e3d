// CStringBuffer: a text that grows cheaply. The store is pre-filled with NUL characters and
// grows in fixed 65536-character chunks; new text is written into it in place, so appending
// many lines never re-copies what is already held. Positions are 1-based, as a VB host
// sees them; run-time errors (5 invalid argument, 6 overflow) are raised as VbError.
#pragma once

#include <cstdint>
#include <string>

#include "automation/variant.h"

namespace corvid::preview {

class CStringBuffer {
  public:
    static constexpr std::int32_t kChunk = 65536;

    CStringBuffer();

    void Append(const std::string& s);
    // Appends the value's text (CStr); a value without one raises the conversion error.
    void AppendV(const automation::Variant& v);
    // Removes Length characters from Index. When the removal reaches the end (including when
    // only the last character would be left), everything from Index is cut and the count
    // actually removed is written back into Length.
    void Remove(std::int32_t Index, std::int32_t& Length);
    // Inserts Text before position Index; Index may be at most the length + 1 (else error 5).
    void Insert(std::int32_t Index, const std::string& Text);
    // Replaces every occurrence in the whole store, padding included; the text then ends at
    // the first NUL (or takes the whole store when it starts with one).
    void Replace(const std::string& orgText, const std::string& NewText);

    // The default member: the text held.
    std::string Value() const;
    // Starts over with `value`. A store that has grown keeps its size and old contents past
    // the new text, while the capacity counts one chunk again.
    void SetValue(const std::string& value);

    // Observers of the private state, for diagnostics.
    const std::string& store() const { return store_; }
    std::int32_t used() const { return used_; }
    std::int32_t capacity() const { return capacity_; }

  private:
    void Initialise();
    void EnsureCapacity(std::int32_t n);

    std::string store_;
    std::int32_t used_ = 0;
    std::int32_t capacity_ = 0;
};

}  // namespace corvid::preview
