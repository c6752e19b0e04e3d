#include "sim/daily_summary.h"

namespace corvid::sim {

namespace {

using Fields = std::vector<std::string>;

std::string Counter(long value) { return ZeroPadded(value, 4); }
std::string Number(long value) { return ZeroPadded(value, 8); }

KindAmounts AmountsOf(const KindTotals& totals) { return {totals.bases, totals.taxes}; }

// Exempt, then base and tax at the general, reduced and additional rates; `count` of them.
void AppendRates(Fields& out, const KindAmounts& amounts, int count = 7) {
    const Cents values[] = {amounts.bases[0], amounts.bases[1], amounts.taxes[1], amounts.bases[2],
                            amounts.taxes[2], amounts.bases[3], amounts.taxes[3]};
    for (int i = 0; i < count; ++i) out.push_back(HundredthsField(values[i]));
}

}  // namespace

SummaryLayout SummaryLayoutFor(Variant variant) {
    switch (variant) {
        case Variant::DT230:
            return SummaryLayout::Basic;
        case Variant::SRP812:
            return SummaryLayout::Fields29;
        case Variant::HKA112:
            return SummaryLayout::Fields30;
        case Variant::SRP350:
            break;
    }
    return SummaryLayout::Long;
}

ClosureRecord LastClosure(const FiscalState& state) {
    return state.memory.empty() ? state.StartingClosure() : state.memory.Last();
}

ClosureRecord DaySoFar(const FiscalState& state) {
    ClosureRecord record = state.StartingClosure();
    record.at = LastClosure(state).at;
    record.invoiceAt = state.lastInvoiceAt.value_or(record.at);
    record.sales = AmountsOf(state.day.sales);
    record.debitNotes = AmountsOf(state.day.debitNotes);
    record.creditNotes = AmountsOf(state.day.creditNotes);
    return record;
}

ClosureRecord NextClosure(const FiscalState& state) {
    ClosureRecord record = DaySoFar(state);
    ++record.number;
    record.at = StampOf(state.Now());
    return record;
}

std::vector<std::string> SummaryFields(const ClosureRecord& r, SummaryLayout layout) {
    Fields out{Counter(r.number), DateField(r.at)};
    if (layout == SummaryLayout::Basic) {
        out.insert(out.end(),
                   {Number(r.lastInvoice), DateField(r.invoiceAt), TimeField(r.invoiceAt)});
        AppendRates(out, r.sales);
        AppendRates(out, r.creditNotes);
        out.push_back(Number(r.lastCreditNote));
        return out;
    }
    out.insert(out.end(), {TimeField(r.at), Number(r.lastInvoice), DateField(r.invoiceAt),
                           TimeField(r.invoiceAt)});
    if (layout == SummaryLayout::Fields29) {
        AppendRates(out, r.sales);
        AppendRates(out, r.debitNotes);
        out.push_back(Number(r.lastDebitNote));
        AppendRates(out, r.creditNotes);
        out.push_back(Number(r.lastCreditNote));
        return out;
    }
    out.insert(out.end(),
               {Number(r.lastDebitNote), Number(r.lastCreditNote), Number(r.lastNonFiscal)});
    AppendRates(out, r.sales);
    AppendRates(out, r.debitNotes);
    AppendRates(out, r.creditNotes);
    if (layout == SummaryLayout::Fields30) return out;
    for (const KindAmounts* kind : {&r.sales, &r.debitNotes, &r.creditNotes}) {
        out.push_back(HundredthsField(kind->bases[kLevySlot]));
    }
    for (int i = 0; i < 6; ++i) out.push_back(HundredthsField(0));  // IGTF, see the header
    return out;
}

std::vector<std::string> ClosureRowFields(const ClosureRecord& r) {
    Fields out{Counter(r.number),       DateField(r.at),          TimeField(r.at),
               Number(r.lastInvoice),   DateField(r.invoiceAt),   TimeField(r.invoiceAt),
               Number(r.lastDebitNote), Number(r.lastCreditNote), Number(r.lastNonFiscal)};
    AppendRates(out, r.sales);
    AppendRates(out, r.debitNotes);
    AppendRates(out, r.creditNotes, 5);
    return out;
}

}  // namespace corvid::sim
