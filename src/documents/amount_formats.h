// Digit strings with implied decimals for the amounts of the document commands: price,
// quantity and payment. Each kind reads its digit and decimal counts from the settings
// once; when either is missing, the printer's flag 21 picks the default pair.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace corvid::documents {

enum class AmountKind { kPrice, kQuantity, kPayment };

struct AmountFormat {
    std::int16_t digits;
    std::int16_t decimals;
};

// The printer's default format of `kind` for the value of its flag 21.
AmountFormat FallbackFormat(AmountKind kind, std::int16_t flag21);

class AmountFormats {
  public:
    // `flag21` is asked only when a setting is missing (it may query the printer).
    explicit AmountFormats(std::function<std::int16_t()> flag21) : flag21_(std::move(flag21)) {}

    // The integer part of value × 10^decimals + 0.5, zero-padded to `digits`, never cut.
    std::string Format(AmountKind kind, double value);

  private:
    std::function<std::int16_t()> flag21_;
    // Digits and decimals of price, quantity and payment; 0 until first use.
    std::array<std::int16_t, 6> formats_{};
};

}  // namespace corvid::documents
