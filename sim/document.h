// The document the printer has open: an invoice, a credit note or a non-fiscal document,
// or, before the first item, only the customer data that the next fiscal document prints.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "sim/money.h"

namespace corvid::sim {

enum class DocumentKind { Invoice, CreditNote, NonFiscal };

struct CustomerData {
    std::string rif;
    std::string name;
    std::string invoiceRef;  // the invoice a credit note corrects
    std::string printerSerial;
    std::string invoiceDate;
    std::map<int, std::string> lines;  // numbered free lines, printed in number order
};

struct Payment {
    int means;
    Cents amount;
};

// An item line that stands on the document (negative quantity: a void), kept so that a
// void can be matched with what was sold.
struct StandingItem {
    int slot;
    std::int64_t price;     // in steps of 10^-4, whatever the decimals sent
    std::int64_t quantity;  // thousandths
};

// Tax rates by slot in hundredths of a percent; exempt and levy slots carry 0.
using Rates = SlotAmounts;

struct Document {
    std::optional<DocumentKind> kind;  // none while only customer data has come
    long number = 0;
    bool training = false;
    CustomerData customer;
    std::vector<StandingItem> items;
    SlotAmounts bases{};  // net amount by rate slot, after voids, discounts and surcharges
    std::vector<Payment> payments;

    bool IsFiscal() const { return kind && *kind != DocumentKind::NonFiscal; }
    bool HasItems() const { return !items.empty(); }
    // How much of (slot, price) is still sold, for a void to take back.
    std::int64_t StandingQuantity(int slot, std::int64_t price) const;
    Cents Paid() const;
};

SlotAmounts TaxesOf(const SlotAmounts& bases, const Rates& rates);
inline Cents TotalOf(const SlotAmounts& bases, const Rates& rates) {
    return Sum(bases) + Sum(TaxesOf(bases, rates));
}

}  // namespace corvid::sim
