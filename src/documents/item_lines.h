// Item lines: the classic commands (a rate character, fixed-width digit fields, the
// description cut at the column limit) and the "G" commands (bar-separated fields with a
// decimal comma).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "automation/currency.h"
#include "automation/variant.h"

namespace corvid::documents {

enum class ItemKind { kSale, kRefund, kVoid };

// The rate prefix and the fields one after another: sale Chr(32 + index), refund "d" and
// Chr(48 + index), void Chr(160 + index). An index whose character does not exist, or a
// negative column limit, raises error 5.
std::string ClassicItemCommand(ItemKind kind, std::int16_t rateIndex, std::string_view price,
                               std::string_view quantity, std::string_view description,
                               std::int32_t columns);

// tipo, the rate index, the price with 2 decimals and "||", the quantity with 3 and "||",
// "|" code "|" when there is a code, the whole description: F+112,50||2,000|||ABC|PAN.
std::string GeneralItemCommand(std::string_view tipo, std::int16_t rateIndex,
                               automation::Currency price, double quantity, std::string_view codigo,
                               std::string_view description);

// What DescripcionError says when a classic line has a negative quantity.
std::string NegativeQuantityMessage(ItemKind kind);

// The index of the first of `count` rates within 0.1 percentage points of `rate`.
std::optional<std::int16_t> MatchRate(const double* rates, std::int16_t count, double rate);

// A number with `pattern`'s decimals and every "." made a ",", as the "G" commands write it.
std::string DecimalComma(const automation::Variant& value, std::string_view pattern);

}  // namespace corvid::documents
