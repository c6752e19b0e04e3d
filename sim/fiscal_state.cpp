#include "sim/fiscal_state.h"

#include <stdexcept>

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

S1Layout DefaultS1Layout(Variant variant) {
    return variant == Variant::HKA112 || variant == Variant::SRP812 ? S1Layout::Long
                                                                    : S1Layout::Short;
}

namespace {

std::string DateText(const std::tm& t) {
    return ZeroPadded(t.tm_year % 100, 2) + ZeroPadded(t.tm_mon + 1, 2) + ZeroPadded(t.tm_mday, 2);
}

}  // namespace

unsigned char FiscalState::Sts1() const {
    if (forcedSts1) return *forcedSts1;
    unsigned char status = training ? 0x40 : 0x60;
    if (document) status += document->kind == DocumentKind::NonFiscal ? 2 : 1;
    return status;
}

unsigned char FiscalState::Sts2() const {
    if (forcedSts2) return *forcedSts2;
    return lastCommandRefused ? 0x60 : 0x40;
}

ClosureRecord FiscalState::StartingClosure() const {
    ClosureRecord record;
    record.number = closures;
    record.at = {StampOf(Now()).date, 0};
    record.lastInvoice = lastInvoice;
    record.invoiceAt = lastInvoiceAt.value_or(record.at);
    record.lastDebitNote = lastDebitNote;
    record.lastCreditNote = lastCreditNote;
    record.lastNonFiscal = lastNonFiscal;
    return record;
}

void FiscalState::LoadMemory() {
    memory.Load();
    if (memory.empty() && !memory.Keep(StartingClosure())) {
        throw std::runtime_error(memory.path() + ": cannot write the fiscal memory");
    }
    const ClosureRecord& last = memory.Last();
    closures = last.number;
    lastInvoice = last.lastInvoice;
    lastInvoiceAt = last.invoiceAt;
    lastDebitNote = last.lastDebitNote;
    lastCreditNote = last.lastCreditNote;
    lastNonFiscal = last.lastNonFiscal;
}

std::tm FiscalState::Now() const {
    if (clock) return *clock;
    std::time_t now = std::time(nullptr) + clockOffset.count();
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

void FiscalState::SetClock(std::tm time) {
    time.tm_isdst = -1;
    std::time_t wanted = std::mktime(&time);
    if (clock) {
        clock = time;
    } else {
        clockOffset = std::chrono::seconds(wanted - std::time(nullptr));
    }
}

std::vector<std::string> FiscalState::S1Fields() const {
    std::tm now = Now();
    // Field 0 echoes the command before the two-digit cashier number.
    std::string cashierField = "S1" + ZeroPadded(cashier, 2);
    std::string total = ZeroPadded(day.sales.Total(), 17);
    if (s1LayoutInUse() == S1Layout::Short) {
        return {cashierField,
                total,
                ZeroPadded(lastInvoice, 8),
                ZeroPadded(day.sales.count, 5),
                ZeroPadded(lastNonFiscal, 8),
                ZeroPadded(day.nonFiscal, 5),
                ZeroPadded(closures, 4),
                ZeroPadded(reportCounter, 4),
                rif,
                serial,
                DateText(now),
                ZeroPadded(now.tm_hour, 2) + ZeroPadded(now.tm_min, 2),
                ZeroPadded(lastCreditNote, 8),
                ZeroPadded(day.creditNotes.count, 5)};
    }
    return {cashierField,
            total,
            ZeroPadded(lastInvoice, 8),
            ZeroPadded(day.sales.count, 5),
            ZeroPadded(lastDebitNote, 8),
            ZeroPadded(day.debitNotes.count, 5),
            ZeroPadded(lastCreditNote, 8),
            ZeroPadded(day.creditNotes.count, 5),
            ZeroPadded(lastNonFiscal, 8),
            ZeroPadded(day.nonFiscal, 5),
            ZeroPadded(reportCounter, 4),
            ZeroPadded(closures, 4),
            rif,
            serial,
            ZeroPadded(now.tm_hour, 2) + ZeroPadded(now.tm_min, 2) + ZeroPadded(now.tm_sec, 2),
            DateText(now)};
}

std::vector<std::string> FiscalState::S3Fields() const {
    // Each rate field is its kind ("0": added to the price, "1": included) and the rate in
    // hundredths of a percent; this printer always adds the tax.
    std::vector<std::string> fields;
    for (int slot = 1; slot <= 3; ++slot) fields.push_back("0" + ZeroPadded(rates[slot], 4));
    fields.push_back("0" + ZeroPadded(igtfRate, 3));
    std::string flagRow;
    for (int value : flags) flagRow += ZeroPadded(value, 2);
    fields.push_back(flagRow);
    return fields;
}

}  // namespace corvid::sim
