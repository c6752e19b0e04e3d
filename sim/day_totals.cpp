#include "sim/day_totals.h"

namespace corvid::sim {

void KindTotals::Add(const SlotAmounts& documentBases, const SlotAmounts& documentTaxes,
                     const std::vector<Payment>& payments, Cents change) {
    ++count;
    for (int slot = 0; slot < kRateSlots; ++slot) {
        bases[slot] += documentBases[slot];
        taxes[slot] += documentTaxes[slot];
    }
    for (const Payment& payment : payments) byMeans[payment.means] += payment.amount;
    if (!payments.empty()) byMeans[payments.back().means] -= change;
}

}  // namespace corvid::sim
