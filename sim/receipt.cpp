#include "sim/receipt.h"

namespace corvid::sim {

namespace {

constexpr const char* kRateMarks[kRateSlots] = {"(E)", "(G)", "(R)", "(A)", "(P)"};
constexpr const char* kRateLetters[kRateSlots] = {"E", "G", "R", "A", "P"};

std::string RateText(const Rates& rates, int slot) {
    return std::string(kRateLetters[slot]) + " (" + FormatDecimal({rates[slot], 2}) + "%)";
}

std::string MeansName(int means) {
    return means == 1 ? "EFECTIVO" : "MEDIO " + ZeroPadded(means, 2);
}

void Append(Lines& out, const Lines& more) { out.insert(out.end(), more.begin(), more.end()); }

Lines DateTime(const std::tm& now) {
    std::string date = ZeroPadded(now.tm_mday, 2) + "-" + ZeroPadded(now.tm_mon + 1, 2) + "-" +
                       ZeroPadded(now.tm_year + 1900, 4);
    std::string time = ZeroPadded(now.tm_hour, 2) + ":" + ZeroPadded(now.tm_min, 2);
    return TwoColumns("FECHA: " + date, "HORA: " + time);
}

void AppendLabelled(Lines& out, std::string_view label, const std::string& value) {
    if (!value.empty()) out.push_back(std::string(label) + value);
}

void PrintedLines(Lines& out, const std::map<int, std::string>& lines) {
    for (const auto& [number, text] : lines) {
        if (text.find_first_not_of(' ') != std::string::npos) out.push_back(text);
    }
}

// Header lines, the owner's tax id and the document's title line.
Lines Top(const FiscalState& state, bool fiscalMark, std::string_view title, std::string number) {
    Lines out;
    if (fiscalMark) out.push_back(Centered("SENIAT"));
    PrintedLines(out, state.header);
    out.push_back("RIF: " + state.rif);
    out.push_back(Rule());
    Append(out, TwoColumns(title, number));
    Append(out, DateTime(state.Now()));
    return out;
}

// The mark that closes a fiscal document: the fiscal logo and the printer's serial number.
Lines Mark(const FiscalState& state) {
    return state.training ? Lines{Centered("NO FISCAL")} : TwoColumns("MH", state.serial);
}

void KindSummary(Lines& out, const KindTotals& totals, const Rates& rates, std::string_view name,
                 std::string_view lastName, long last) {
    Append(out, TwoColumns(name, std::to_string(totals.count)));
    Append(out, TwoColumns(lastName, ZeroPadded(last, 8)));
    Append(out, AmountLine("EXENTO (E)", totals.bases[0]));
    for (int slot = 1; slot <= 3; ++slot) {
        Append(out, AmountLine("BI " + RateText(rates, slot), totals.bases[slot]));
        Append(out, AmountLine("IVA " + RateText(rates, slot), totals.taxes[slot]));
    }
    Append(out, AmountLine("PERCIBIDO (P)", totals.bases[kLevySlot]));
    Append(out, AmountLine("TOTAL", totals.Total()));
    out.push_back(Rule());
}

}  // namespace

std::string Rule() { return std::string(kPaperColumns, '-'); }

std::string Centered(std::string_view text) {
    text = text.substr(0, kPaperColumns);
    return std::string((kPaperColumns - text.size()) / 2, ' ') + std::string(text);
}

Lines TwoColumns(std::string_view left, std::string_view right) {
    if (left.size() + 1 + right.size() <= kPaperColumns) {
        return {std::string(left) + std::string(kPaperColumns - left.size() - right.size(), ' ') +
                std::string(right)};
    }
    right = right.substr(0, kPaperColumns);
    return {std::string(left), std::string(kPaperColumns - right.size(), ' ') + std::string(right)};
}

Lines DocumentHeading(const FiscalState& state, const Document& document) {
    std::string title = "NO FISCAL";
    if (document.kind == DocumentKind::Invoice) title = "FACTURA";
    if (document.kind == DocumentKind::CreditNote) title = "NOTA DE CREDITO";
    Lines out = Top(state, document.IsFiscal() && !document.training, title,
                    ZeroPadded(document.number, 8));
    if (state.cashier != 0) out.push_back("CAJERO: " + ZeroPadded(state.cashier, 5));
    if (document.training) out.push_back(Centered("*** ENTRENAMIENTO ***"));
    const CustomerData& customer = document.customer;
    AppendLabelled(out, "RIF/C.I.: ", customer.rif);
    AppendLabelled(out, "RAZON SOCIAL: ", customer.name);
    AppendLabelled(out, "FACTURA AFECTADA: ", customer.invoiceRef);
    AppendLabelled(out, "IMPRESORA: ", customer.printerSerial);
    AppendLabelled(out, "FECHA FACTURA: ", customer.invoiceDate);
    PrintedLines(out, customer.lines);
    out.push_back(Rule());
    return out;
}

Lines ItemLines(const PrintedItem& item) {
    Lines out;
    if (item.isVoid) out.push_back("ANULACION");
    if (Thousandths(item.quantity) != 1000) {
        out.push_back(FormatDecimal(item.quantity, true) + " x " + FormatDecimal(item.price));
    }
    std::string description =
        item.code.empty() ? item.description : item.code + " " + item.description;
    std::string amount = FormatAmount(item.amount);
    std::string right = kRateMarks[item.slot];
    right += std::string(amount.size() < 11 ? 11 - amount.size() : 1, ' ') + amount;
    Append(out, TwoColumns(description, right));
    return out;
}

Lines AmountLine(std::string_view label, Cents amount) {
    return TwoColumns(label, FormatAmount(amount));
}

Lines TotalsLines(const SlotAmounts& bases, const Rates& rates) {
    Lines out{Rule()};
    SlotAmounts taxes = TaxesOf(bases, rates);
    if (bases[0] != 0) Append(out, AmountLine("EXENTO (E)", bases[0]));
    for (int slot = 1; slot <= 3; ++slot) {
        if (bases[slot] == 0) continue;
        Append(out, AmountLine("BI " + RateText(rates, slot), bases[slot]));
        Append(out, AmountLine("IVA " + RateText(rates, slot), taxes[slot]));
    }
    if (bases[kLevySlot] != 0) Append(out, AmountLine("PERCIBIDO (P)", bases[kLevySlot]));
    out.push_back(Rule());
    Append(out, AmountLine("TOTAL", Sum(bases) + Sum(taxes)));
    return out;
}

Lines PaymentLine(int means, Cents amount) { return AmountLine(MeansName(means), amount); }

Lines DocumentEnding(const FiscalState& state, const Document& document) {
    Lines out{Rule()};
    PrintedLines(out, state.footer);
    Append(out, document.IsFiscal() ? Mark(state) : Lines{Centered("NO FISCAL")});
    return out;
}

Lines DailyReport(const FiscalState& state, std::string_view title, long number) {
    Lines out = Top(state, !state.training, title, ZeroPadded(number, 4));
    out.push_back(Rule());
    const DayTotals& day = state.day;
    KindSummary(out, day.sales, state.rates, "FACTURAS", "ULTIMA FACTURA", state.lastInvoice);
    KindSummary(out, day.creditNotes, state.rates, "NOTAS DE CREDITO", "ULTIMA NOTA DE CREDITO",
                state.lastCreditNote);
    Append(out, TwoColumns("NO FISCALES", std::to_string(day.nonFiscal)));
    Append(out, TwoColumns("ULTIMO NO FISCAL", ZeroPadded(state.lastNonFiscal, 8)));
    Append(out, TwoColumns("ANULADOS", std::to_string(day.cancelled)));
    out.push_back(Rule());
    Lines byMeans;
    for (int means = 1; means <= kMeansOfPayment; ++means) {
        const Cents amount = day.sales.byMeans[means];
        if (amount != 0) Append(byMeans, PaymentLine(means, amount));
    }
    if (!byMeans.empty()) {
        Append(out, byMeans);
        out.push_back(Rule());
    }
    Append(out, Mark(state));
    return out;
}

}  // namespace corvid::sim
