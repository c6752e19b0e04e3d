// Format(value, pattern) with every kind of value a host can pass and any pattern, under a
// few user locales.
// Properties: only run-time errors escape; Empty and Null give ""; an error value raises
// type mismatch; an empty pattern gives CStr. For numbers, the digit patterns give a text
// that reads back (CDbl, same locale) as the value rounded to the pattern's decimals; for
// dates, the date patterns (with "m" as month and as minutes) agree with the date's parts.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <variant>

#include "automation/conversions.h"
#include "automation/dates.h"
#include "automation/format.h"
#include "automation/vb_error.h"
#include "fuzz_support.h"

namespace {

using namespace corvid::automation;

double FromBits(std::uint64_t bits) {
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

Variant MakeValue(FuzzedDataProvider& in) {
    switch (in.ConsumeIntegralInRange(0, 10)) {
        case 0:
            return Empty{};
        case 1:
            return Null{};
        case 2:
            return in.ConsumeBool();
        case 3:
            return in.ConsumeIntegral<std::int16_t>();
        case 4:
            return in.ConsumeIntegral<std::int32_t>();
        case 5:
            return static_cast<float>(FromBits(in.ConsumeIntegral<std::uint64_t>()));
        case 6:
            return FromBits(in.ConsumeIntegral<std::uint64_t>());
        case 7:
            return Currency::FromScaled(in.ConsumeIntegral<std::int64_t>());
        case 8:
            // Mostly the dates a host can hold (years 100 to 9999), sometimes any double.
            if (in.ConsumeBool()) return Date{FromBits(in.ConsumeIntegral<std::uint64_t>())};
            return Date{in.ConsumeFloatingPointInRange(-657434.0, 2958465.99998)};
        case 9:
            return in.ConsumeRandomLengthString(24);
        default:
            return ErrorValue{in.ConsumeIntegral<std::int32_t>()};
    }
}

// The value as the number Format rounds, with how many significant digits it keeps.
std::optional<std::pair<double, double>> NumberOf(const Variant& value) {
    if (const auto* b = std::get_if<bool>(&value)) return std::pair{*b ? -1.0 : 0.0, 0.0};
    if (const auto* i = std::get_if<std::int16_t>(&value)) return std::pair{double(*i), 0.0};
    if (const auto* l = std::get_if<std::int32_t>(&value)) return std::pair{double(*l), 0.0};
    if (const auto* f = std::get_if<float>(&value)) return std::pair{double(*f), 1e-6};
    if (const auto* d = std::get_if<double>(&value)) return std::pair{*d, 1e-14};
    if (const auto* c = std::get_if<Currency>(&value)) return std::pair{c->ToDouble(), 1e-15};
    if (const auto* t = std::get_if<Date>(&value)) return std::pair{t->days, 1e-14};
    if (const auto* s = std::get_if<std::string>(&value)) {
        try {
            return std::pair{CDbl(*s), 1e-14};
        } catch (const VbError&) {
        }
    }
    return std::nullopt;
}

// The text, or the number of the run-time error raised instead.
template <typename F>
std::variant<std::string, std::int32_t> TextOrError(F make) {
    try {
        return make();
    } catch (const VbError& error) {
        return error.number();
    }
}

void CheckDigitPatterns(const Variant& value) {
    const auto number = NumberOf(value);
    if (!number || !std::isfinite(number->first) || std::fabs(number->first) >= 1e15) return;
    const auto [x, relative] = *number;
    static constexpr std::pair<const char*, int> kPatterns[] = {
        {"0", 0}, {"0.00", 2}, {"#,##0.00", 2}, {"0.0000", 4}, {"#,##0", 0}};
    for (const auto& [pattern, decimals] : kPatterns) {
        const std::string text = Format(value, pattern);
        const double back = CDbl(text);
        const double limit = 0.5 * std::pow(10.0, -decimals) * (1 + 1e-9) + std::fabs(x) * relative;
        if (!(std::fabs(back - x) <= limit)) {
            std::fprintf(stderr, "Format(%.17g, \"%s\") = \"%s\"\n", x, pattern, text.c_str());
        }
        FUZZ_CHECK(std::fabs(back - x) <= limit);
    }
}

void CheckDatePatterns(const Variant& value) {
    const auto* date = std::get_if<Date>(&value);
    if (date == nullptr || !(date->days >= DateSerial(1000, 1, 1).days) ||
        !(date->days < DateSerial(10000, 1, 1).days)) {
        return;
    }
    const DateParts p = SplitDate(*date);
    if (p.year > 9999) return;  // rounded up past the last second of 9999
    char expected[64];
    std::snprintf(expected, sizeof expected, "%02d-%02d-%04d %02d:%02d", p.day, p.month, p.year,
                  p.hour, p.minute);
    FUZZ_CHECK(Format(value, "dd-mm-yyyy hh:nn") == expected);
    std::snprintf(expected, sizeof expected, "%02d/%02d/%02d %d:%02d:%02d", p.day, p.month,
                  p.year % 100, p.hour, p.minute, p.second);
    FUZZ_CHECK(Format(value, "dd/mm/yy h:mm:ss") == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    const auto localeChoice = in.ConsumeIntegral<std::uint8_t>();
    const auto currencyOrders = in.ConsumeIntegral<std::uint8_t>();
    corvid::fuzz::ScopedLocale locale(localeChoice, currencyOrders);
    const Variant value = MakeValue(in);
    const std::string pattern = in.ConsumeRandomLengthString(64);

    const bool blank = std::holds_alternative<Empty>(value) || std::holds_alternative<Null>(value);
    if (std::holds_alternative<ErrorValue>(value)) {
        bool mismatch = false;
        try {
            (void)Format(value, pattern);
        } catch (const VbError& error) {
            mismatch = error.number() == 13;
        }
        FUZZ_CHECK(mismatch);
        return 0;
    }
    try {
        const std::string text = Format(value, pattern);
        if (blank) FUZZ_CHECK(text.empty());
    } catch (const VbError&) {
        FUZZ_CHECK(!blank);
    }
    if (blank) return 0;
    FUZZ_CHECK(TextOrError([&] { return Format(value, ""); }) ==
               TextOrError([&] { return CStr(value); }));
    CheckDigitPatterns(value);
    CheckDatePatterns(value);
    return 0;
}
