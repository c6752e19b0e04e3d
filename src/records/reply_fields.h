// How a printer reply is read as fields: split at line feeds, a missing field fails as an
// array subscript does, amounts come in hundredths, and the text pieces are VB's Left, Mid,
// Right.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/currency.h"

namespace corvid::records {

using Fields = std::vector<std::string>;

// Split at line feed the way the host's Split does: every field kept, empty ones too; an
// empty text has no fields.
Fields SplitFields(const std::string& text);

// Field i, or the subscript error (9) when the reply has no such field.
const std::string& FieldAt(const Fields& fields, std::size_t i);

}  // namespace corvid::records

namespace corvid::records::detail {

// An amount sent in hundredths without a decimal point (1234567 is 12345.67). Raises type
// mismatch (13) for a text that is not a number, overflow (6) when it does not fit.
automation::Currency Hundredths(std::string_view text);

// A counter converted as a 32-bit integer and then narrowed to 16 bits (overflow above
// 32767), as the printer's day counts are.
std::int16_t NarrowedCounter(std::string_view text);

// Up to n characters from the start, from position `start` (1-based) and from the end.
std::string_view Left(std::string_view text, std::size_t n);
std::string_view Mid(std::string_view text, std::size_t start,
                     std::size_t n = std::string_view::npos);
std::string_view Right(std::string_view text, std::size_t n);
// Without the blanks around it (spaces only, as VB's Trim).
std::string_view Trim(std::string_view text);

}  // namespace corvid::records::detail
