#include "sim/field_reader.h"

namespace corvid::sim {

bool FieldReader::Skip(std::string_view literal) {
    if (!rest_.starts_with(literal)) return false;
    rest_.remove_prefix(literal.size());
    return true;
}

std::optional<unsigned char> FieldReader::Byte() {
    if (rest_.empty()) return std::nullopt;
    unsigned char byte = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
}

std::optional<std::int64_t> FieldReader::Digits(std::size_t count) {
    if (count == 0 || count > 18 || rest_.size() < count) return std::nullopt;
    std::int64_t value = 0;
    for (std::size_t i = 0; i < count; ++i) {
        char c = rest_[i];
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    rest_.remove_prefix(count);
    return value;
}

std::optional<Decimal> FieldReader::Fixed(NumberField field) {
    std::optional<std::int64_t> units = Digits(static_cast<std::size_t>(field.digits));
    if (!units) return std::nullopt;
    return Decimal{*units, field.decimals};
}

std::optional<std::string_view> FieldReader::Until(std::string_view separator) {
    std::size_t at = rest_.find(separator);
    if (at == std::string_view::npos) return std::nullopt;
    std::string_view field = rest_.substr(0, at);
    rest_.remove_prefix(at + separator.size());
    return field;
}

std::string_view FieldReader::Rest() {
    std::string_view rest = rest_;
    rest_ = {};
    return rest;
}

}  // namespace corvid::sim
