#include "jobs/documents.h"

#include "jobs/date_text.h"
#include "jobs/json_fields.h"

namespace corvid::jobs {

namespace {

using namespace fields;

Customer ParseCustomer(const json& value, const std::string& where) {
    const json& object = Object(value, where, {"name", "rif", "address"});
    Customer customer;
    customer.name = Text(Required(object, where, "name"), Member(where, "name"));
    customer.rif = Text(Required(object, where, "rif"), Member(where, "rif"));
    if (const json* address = Optional(object, "address")) {
        const std::string at = Member(where, "address");
        const json& lines = Array(*address, at, true);
        for (std::size_t i = 0; i < lines.size(); ++i)
            customer.address.push_back(Text(lines[i], Element(at, i)));
    }
    return customer;
}

Item ParseItem(const json& value, const std::string& where) {
    const json& object = Object(value, where, {"description", "price", "quantity", "rate"});
    Item item;
    item.description = Text(Required(object, where, "description"), Member(where, "description"));
    const std::string priceAt = Member(where, "price");
    const double price = Number(Required(object, where, "price"), priceAt);
    if (price < 0) Fail(priceAt, "expected a price of 0 or more");
    item.price = Money(price, priceAt);
    item.quantity = PositiveNumber(Required(object, where, "quantity"), Member(where, "quantity"));
    item.rate = Number(Required(object, where, "rate"), Member(where, "rate"));
    return item;
}

std::vector<Item> ParseItems(const json& document, const std::string& at) {
    const std::string where = Member(at, "items");
    const json& items = Array(Required(document, at, "items"), where, false);
    std::vector<Item> parsed;
    for (std::size_t i = 0; i < items.size(); ++i)
        parsed.push_back(ParseItem(items[i], Element(where, i)));
    return parsed;
}

Discount ParseDiscount(const json& value, const std::string& where) {
    const json& object = Object(value, where, {"percent", "amount"});
    if (object.contains("percent") == object.contains("amount"))
        Fail(where, "give either percent or amount");
    Discount discount;
    if (const json* percent = Optional(object, "percent")) {
        discount.percent = PositiveNumber(*percent, Member(where, "percent"));
    } else {
        const std::string amountAt = Member(where, "amount");
        discount.amount = Money(PositiveNumber(object.at("amount"), amountAt), amountAt);
    }
    return discount;
}

std::vector<Discount> ParseDiscounts(const json& document, const std::string& at) {
    std::vector<Discount> parsed;
    const json* discounts = Optional(document, "discounts");
    if (!discounts) return parsed;
    const std::string where = Member(at, "discounts");
    Array(*discounts, where, true);
    for (std::size_t i = 0; i < discounts->size(); ++i)
        parsed.push_back(ParseDiscount((*discounts)[i], Element(where, i)));
    return parsed;
}

Payment ParsePayment(const json& value, const std::string& where) {
    const json& object = Object(value, where, {"means", "amount"});
    const json& means = Required(object, where, "means");
    if (!means.is_number_integer() || means.get<std::int64_t>() < 1 ||
        means.get<std::int64_t>() > 99)
        Fail(Member(where, "means"), "expected a means number from 1 to 99");
    const std::string amountAt = Member(where, "amount");
    const double amount = Number(Required(object, where, "amount"), amountAt);
    if (amount < 0) Fail(amountAt, "expected an amount of 0 or more");
    return {static_cast<int>(means.get<std::int64_t>()), Money(amount, amountAt)};
}

std::vector<Payment> ParsePayments(const json& document, const std::string& at) {
    const std::string where = Member(at, "payments");
    const json& payments = Array(Required(document, at, "payments"), where, false);
    std::vector<Payment> parsed;
    for (std::size_t i = 0; i < payments.size(); ++i)
        parsed.push_back(ParsePayment(payments[i], Element(where, i)));
    return parsed;
}

InvoiceReference ParseInvoice(const json& value, const std::string& where) {
    const json& object = Object(value, where, {"number", "serial", "date"});
    InvoiceReference invoice;
    invoice.number = Text(Required(object, where, "number"), Member(where, "number"));
    invoice.serial = Text(Required(object, where, "serial"), Member(where, "serial"));
    const std::string dateAt = Member(where, "date");
    const std::string date = Text(Required(object, where, "date"), dateAt);
    const auto parsed = ParseDayMonthYear(date);
    if (!parsed) Fail(dateAt, "expected a date written dd-mm-yyyy, found \"" + date + "\"");
    invoice.date = *parsed;
    return invoice;
}

}  // namespace

Sale SaleFromJson(const json& document, const std::string& where) {
    Object(document, where, {"customer", "items", "discounts", "payments"});
    Sale sale;
    if (const json* customer = Optional(document, "customer"))
        sale.customer = ParseCustomer(*customer, Member(where, "customer"));
    sale.items = ParseItems(document, where);
    sale.discounts = ParseDiscounts(document, where);
    sale.payments = ParsePayments(document, where);
    return sale;
}

CreditNote CreditNoteFromJson(const json& document, const std::string& where) {
    Object(document, where, {"customer", "invoice", "items", "payments"});
    CreditNote note;
    note.customer = ParseCustomer(Required(document, where, "customer"), Member(where, "customer"));
    note.invoice = ParseInvoice(Required(document, where, "invoice"), Member(where, "invoice"));
    note.items = ParseItems(document, where);
    note.payments = ParsePayments(document, where);
    return note;
}

Sale ParseSale(std::string_view text) { return SaleFromJson(ParseJson(text), ""); }

CreditNote ParseCreditNote(std::string_view text) {
    return CreditNoteFromJson(ParseJson(text), "");
}

}  // namespace corvid::jobs
