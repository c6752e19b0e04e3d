#include "sim/fiscal_state.h"

#include <cstdio>

namespace corvid::sim {

Variant VariantFromSerial(std::string_view serial) {
    std::string_view prefix = serial.substr(0, 3);
    if (prefix == "Z6B") return Variant::DT230;
    if (prefix == "Z7A") return Variant::HKA112;
    if (prefix == "Z1F") return Variant::SRP812;
    return Variant::SRP350;
}

std::string DefaultSerial(Variant variant) {
    switch (variant) {
        case Variant::DT230:
            return "Z6B7004213";
        case Variant::HKA112:
            return "Z7A0051988";
        case Variant::SRP812:
            return "Z1F0002547";
        case Variant::SRP350:
            break;
    }
    return "Z1B3000815";
}

namespace {

std::string Digits(long long value, int width) {
    char text[32];
    std::snprintf(text, sizeof text, "%0*lld", width, value);
    return text;
}

std::tm Now(const std::optional<std::tm>& fixed) {
    if (fixed) return *fixed;
    std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

std::string DateText(const std::tm& t) {
    return Digits(t.tm_year % 100, 2) + Digits(t.tm_mon + 1, 2) + Digits(t.tm_mday, 2);
}

}  // namespace

std::vector<std::string> FiscalState::S1Fields() const {
    std::tm now = Now(clock);
    // Field 0 echoes the command before the two-digit cashier number.
    std::string cashierField = "S1" + Digits(cashier, 2);
    std::string total = Digits(dailySalesHundredths, 17);
    if (s1Layout == S1Layout::Short) {
        return {cashierField,
                total,
                Digits(lastInvoice, 8),
                Digits(invoicesToday, 5),
                Digits(lastNonFiscal, 8),
                Digits(nonFiscalToday, 5),
                Digits(closures, 4),
                Digits(reportCounter, 4),
                rif,
                serial,
                DateText(now),
                Digits(now.tm_hour, 2) + Digits(now.tm_min, 2),
                Digits(lastCreditNote, 8),
                Digits(creditNotesToday, 5)};
    }
    return {cashierField,
            total,
            Digits(lastInvoice, 8),
            Digits(invoicesToday, 5),
            Digits(lastDebitNote, 8),
            Digits(debitNotesToday, 5),
            Digits(lastCreditNote, 8),
            Digits(creditNotesToday, 5),
            Digits(lastNonFiscal, 8),
            Digits(nonFiscalToday, 5),
            Digits(reportCounter, 4),
            Digits(closures, 4),
            rif,
            serial,
            Digits(now.tm_hour, 2) + Digits(now.tm_min, 2) + Digits(now.tm_sec, 2),
            DateText(now)};
}

}  // namespace corvid::sim
