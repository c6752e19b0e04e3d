// Reads the fields of one command text from left to right. Every reader returns nothing
// when the text does not fit, so a handler can refuse a malformed command before it
// changes anything.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "sim/amount_formats.h"

namespace corvid::sim {

class FieldReader {
  public:
    explicit FieldReader(std::string_view text) : rest_(text) {}

    // Consumes `literal` when the text goes on with it.
    bool Skip(std::string_view literal);
    std::optional<unsigned char> Byte();
    // Exactly `count` decimal digits (at most 18).
    std::optional<std::int64_t> Digits(std::size_t count);
    // A fixed-width digit field with implied decimals.
    std::optional<Decimal> Fixed(NumberField field);
    // The text up to `separator`, which is consumed too.
    std::optional<std::string_view> Until(std::string_view separator);
    // Everything left.
    std::string_view Rest();
    bool AtEnd() const { return rest_.empty(); }

  private:
    std::string_view rest_;
};

}  // namespace corvid::sim
