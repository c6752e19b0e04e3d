// What the day's documents add up to, kept until the daily closing: counts, bases and taxes
// by rate slot, and amounts by means of payment, per kind of fiscal document. The status
// records and the daily reports are read from here.
#pragma once

#include <array>
#include <vector>

#include "sim/document.h"

namespace corvid::sim {

inline constexpr int kMeansOfPayment = 24;  // means 01 to 24

struct KindTotals {
    long count = 0;
    SlotAmounts bases{};
    SlotAmounts taxes{};
    std::array<Cents, kMeansOfPayment + 1> byMeans{};  // index 1 to 24; 0 unused

    // Takes in one finished document. The change goes back out through the means of the
    // last payment, the one that went beyond the total.
    void Add(const SlotAmounts& documentBases, const SlotAmounts& documentTaxes,
             const std::vector<Payment>& payments, Cents change);
    Cents Total() const { return Sum(bases) + Sum(taxes); }
};

struct DayTotals {
    KindTotals sales;
    KindTotals debitNotes;  // no command issues them yet; S1's long layout reports them
    KindTotals creditNotes;
    long nonFiscal = 0;
    long cancelled = 0;  // fiscal documents cancelled after their number was printed
};

}  // namespace corvid::sim
