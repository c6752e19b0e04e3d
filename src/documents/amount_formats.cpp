#include "documents/amount_formats.h"

#include <cmath>

#include "automation/format.h"
#include "host/library_settings.h"

namespace corvid::documents {
namespace {

struct AmountSettings {
    const char* digitsKey;
    const char* decimalsKey;
};

AmountSettings SettingsOf(AmountKind kind) {
    switch (kind) {
        case AmountKind::kPrice:
            return {"DigitosPrecio", "DecimalesPrecio"};
        case AmountKind::kQuantity:
            return {"DigitosCantidad", "DecimalesCantidad"};
        case AmountKind::kPayment:
            break;
    }
    return {"DigitosMedio", "DecimalesMedio"};
}

}  // namespace

AmountFormat FallbackFormat(AmountKind kind, std::int16_t flag21) {
    struct Row {
        std::int16_t flag;
        AmountFormat price, quantity, payment;
    };
    static constexpr Row kRows[] = {
        {2, {10, 3}, {8, 3}, {12, 2}},   {3, {10, 4}, {8, 3}, {12, 2}},
        {11, {10, 1}, {8, 3}, {12, 1}},  {12, {10, 0}, {8, 3}, {12, 0}},
        {30, {16, 2}, {17, 3}, {17, 2}},
    };
    Row row{0, {10, 2}, {8, 3}, {12, 2}};
    for (const Row& candidate : kRows) {
        if (candidate.flag == flag21) row = candidate;
    }
    switch (kind) {
        case AmountKind::kPrice:
            return row.price;
        case AmountKind::kQuantity:
            return row.quantity;
        case AmountKind::kPayment:
            break;
    }
    return row.payment;
}

std::string AmountFormats::Format(AmountKind kind, double value) {
    const std::size_t slot = 2 * static_cast<std::size_t>(kind);
    if (formats_[slot] == 0) {
        const AmountSettings keys = SettingsOf(kind);
        formats_[slot] = host::ReadInt16Setting(keys.digitsKey, -1).value_or(-1);
        formats_[slot + 1] = host::ReadInt16Setting(keys.decimalsKey, -1).value_or(-1);
        if (formats_[slot] < 0 || formats_[slot + 1] < 0) {
            const AmountFormat fallback = FallbackFormat(kind, flag21_());
            formats_[slot] = fallback.digits;
            formats_[slot + 1] = fallback.decimals;
        }
    }
    const double scaled = std::floor(value * std::pow(10.0, formats_[slot + 1]) + 0.5);
    return automation::Format(scaled, std::string(static_cast<std::size_t>(formats_[slot]), '0'));
}

}  // namespace corvid::documents
