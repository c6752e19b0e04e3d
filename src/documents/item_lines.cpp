#include "documents/item_lines.h"

#include <cmath>

#include "automation/format.h"
#include "automation/vb_error.h"

namespace corvid::documents {
namespace {

// Chr(code) of a single-byte code page: 0 to 255, else error 5.
char Chr(int code) {
    if (code < 0 || code > 255) {
        throw automation::VbError::Standard(automation::vb_errors::kInvalidProcedureCall);
    }
    return static_cast<char>(code);
}

std::string RatePrefix(ItemKind kind, std::int16_t index) {
    switch (kind) {
        case ItemKind::kSale:
            return std::string(1, Chr(32 + index));
        case ItemKind::kRefund:
            return std::string("d") + Chr(48 + index);
        case ItemKind::kVoid:
            break;
    }
    return std::string(1, Chr(160 + index));
}

}  // namespace

std::string ClassicItemCommand(ItemKind kind, std::int16_t rateIndex, std::string_view price,
                               std::string_view quantity, std::string_view description,
                               std::int32_t columns) {
    if (columns < 0) {
        throw automation::VbError::Standard(automation::vb_errors::kInvalidProcedureCall);
    }
    std::string command = RatePrefix(kind, rateIndex);
    command += price;
    command += quantity;
    command += description.substr(0, static_cast<std::size_t>(columns));
    return command;
}

std::string DecimalComma(const automation::Variant& value, std::string_view pattern) {
    std::string text = automation::Format(value, pattern);
    for (char& c : text) {
        if (c == '.') c = ',';
    }
    return text;
}

std::string GeneralItemCommand(std::string_view tipo, std::int16_t rateIndex,
                               automation::Currency price, double quantity, std::string_view codigo,
                               std::string_view description) {
    std::string command(tipo);
    command += std::to_string(rateIndex);
    command += DecimalComma(automation::Variant(price), "###0.00") + "||";
    command += DecimalComma(automation::Variant(quantity), "###0.000") + "||";
    if (!codigo.empty()) {
        command += '|';
        command += codigo;
        command += '|';
    }
    command += description;
    return command;
}

std::string NegativeQuantityMessage(ItemKind kind) {
    const char* method = kind == ItemKind::kSale     ? "PasarItem"
                         : kind == ItemKind::kRefund ? "RefundItem"
                                                     : "AnularItem";
    return std::string("Argumento inv\xE1lido (cantidad negativa) en ") + method;
}

std::optional<std::int16_t> MatchRate(const double* rates, std::int16_t count, double rate) {
    for (std::int16_t i = 0; i < count && i < 8; ++i) {
        if (std::fabs(rates[i] - rate) < 0.1) return i;
    }
    return std::nullopt;
}

}  // namespace corvid::documents
