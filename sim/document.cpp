#include "sim/document.h"

namespace corvid::sim {

std::int64_t Document::StandingQuantity(int slot, std::int64_t price) const {
    std::int64_t quantity = 0;
    for (const StandingItem& item : items) {
        if (item.slot == slot && item.price == price) quantity += item.quantity;
    }
    return quantity;
}

Cents Document::Paid() const {
    Cents paid = 0;
    for (const Payment& payment : payments) paid += payment.amount;
    return paid;
}

SlotAmounts TaxesOf(const SlotAmounts& bases, const Rates& rates) {
    SlotAmounts taxes{};
    for (int slot = 0; slot < kRateSlots; ++slot) taxes[slot] = TaxOn(bases[slot], rates[slot]);
    return taxes;
}

}  // namespace corvid::sim
