// The printed form of documents and reports: 40-column lines in the printer's code page.
// Pure functions of the state; the document flow decides when each part is printed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sim/fiscal_state.h"

namespace corvid::sim {

using Lines = std::vector<std::string>;

// One item line as it is printed.
struct PrintedItem {
    bool isVoid = false;
    int slot = 0;
    Decimal price;
    Decimal quantity;
    std::string code;
    std::string description;
    Cents amount = 0;  // negative for a void
};

std::string Rule();
std::string Centered(std::string_view text);
// `left` and `right` on one line, `right` against the right edge; on two lines when they
// do not fit side by side.
Lines TwoColumns(std::string_view left, std::string_view right);

// Header lines, title and number, date and time, cashier; a fiscal document's customer data.
Lines DocumentHeading(const FiscalState& state, const Document& document);
Lines ItemLines(const PrintedItem& item);
Lines AmountLine(std::string_view label, Cents amount);
// Bases and taxes by rate, then the total.
Lines TotalsLines(const SlotAmounts& bases, const Rates& rates);
Lines PaymentLine(int means, Cents amount);
// Footer lines and the closing mark.
Lines DocumentEnding(const FiscalState& state, const Document& document);
// The X or Z report of the day's totals.
Lines DailyReport(const FiscalState& state, std::string_view title, long number);

}  // namespace corvid::sim
