// Sales and credit notes: the JSON documents programs send (in a file to the tool, in a job
// to the service), turned into the session's calls.
//
//   sale:        { "customer": {...} (optional), "items": [...], "discounts": [...]
//                  (optional), "payments": [...] }
//   credit note: { "customer": {...}, "invoice": { "number", "serial", "date" },
//                  "items": [...], "payments": [...] }
//   customer:    { "name", "rif", "address": ["line", ...] (optional) }
//   item:        { "description", "price" (net unit price), "quantity", "rate" (percent) }
//   discount:    { "percent" } or { "amount" }, applied to the subtotal
//   payment:     { "means" (1-99), "amount" }
//
// A malformed document is refused as a whole, naming the place ("items[1].price: expected a
// number, found a string"), before anything is sent to the printer. Texts are converted
// from UTF-8 to the printer's code page here.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "automation/currency.h"
#include "automation/variant.h"

namespace corvid::jobs {

struct Customer {
    std::string name;
    std::string rif;
    std::vector<std::string> address;
};

struct Item {
    std::string description;
    automation::Currency price;
    double quantity = 0;
    double rate = 0;
};

struct Discount {
    // Exactly one is set.
    std::optional<double> percent;
    std::optional<automation::Currency> amount;
};

struct Payment {
    int means = 1;
    automation::Currency amount;
};

struct Sale {
    std::optional<Customer> customer;
    std::vector<Item> items;
    std::vector<Discount> discounts;
    std::vector<Payment> payments;
};

// The invoice a credit note refers to.
struct InvoiceReference {
    std::string number;
    std::string serial;
    automation::Date date;
};

struct CreditNote {
    Customer customer;
    InvoiceReference invoice;
    std::vector<Item> items;
    std::vector<Payment> payments;
};

class DocumentError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Throw DocumentError saying what is wrong and where.
Sale ParseSale(std::string_view json);
CreditNote ParseCreditNote(std::string_view json);
// The same for a document already parsed, found at `where` ("document" in a job): places
// are named from there ("document.items[1].price").
Sale SaleFromJson(const nlohmann::json& document, const std::string& where);
CreditNote CreditNoteFromJson(const nlohmann::json& document, const std::string& where);

}  // namespace corvid::jobs
