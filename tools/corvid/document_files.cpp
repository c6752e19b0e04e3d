#include "corvid/document_files.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <sstream>

#include "automation/vb_error.h"
#include "corvid/date_text.h"
#include "text/windows_1252.h"

namespace corvid::tool {

namespace {

using nlohmann::json;
using Keys = std::initializer_list<const char*>;

[[noreturn]] void Fail(const std::string& where, const std::string& what) {
    throw DocumentFileError(where.empty() ? what : where + ": " + what);
}

std::string Found(const json& value) {
    const std::string type = value.type_name();
    return "found " + std::string(type == "object" || type == "array" ? "an " : "a ") + type;
}

std::string Member(const std::string& where, const char* key) {
    return where.empty() ? key : where + "." + key;
}

std::string Element(const std::string& where, std::size_t index) {
    return where + "[" + std::to_string(index) + "]";
}

// An object holding only `allowed` keys: a misspelt key would otherwise drop its value
// without a word.
const json& Object(const json& value, const std::string& where, Keys allowed) {
    if (!value.is_object()) Fail(where, "expected an object, " + Found(value));
    for (const auto& [key, member] : value.items()) {
        bool known = false;
        for (const char* name : allowed) known = known || key == name;
        if (!known) {
            std::string names;
            for (const char* name : allowed) names += std::string(names.empty() ? "" : ", ") + name;
            Fail(Member(where, key.c_str()), "unknown field (expected " + names + ")");
        }
    }
    return value;
}

const json& Required(const json& object, const std::string& where, const char* key) {
    if (!object.contains(key)) Fail(Member(where, key), "missing");
    return object.at(key);
}

const json* Optional(const json& object, const char* key) {
    return object.contains(key) ? &object.at(key) : nullptr;
}

const json& Array(const json& value, const std::string& where, bool mayBeEmpty) {
    if (!value.is_array()) Fail(where, "expected an array, " + Found(value));
    if (value.empty() && !mayBeEmpty) Fail(where, "expected at least one entry");
    return value;
}

std::string Text(const json& value, const std::string& where) {
    if (!value.is_string()) Fail(where, "expected a string, " + Found(value));
    return text::Windows1252FromUtf8(value.get<std::string>());
}

double Number(const json& value, const std::string& where) {
    if (!value.is_number()) Fail(where, "expected a number, " + Found(value));
    return value.get<double>();
}

double PositiveNumber(const json& value, const std::string& where) {
    const double number = Number(value, where);
    if (!(number > 0)) Fail(where, "expected a number above 0");
    return number;
}

automation::Currency Money(double amount, const std::string& where) {
    try {
        return automation::Currency::FromDouble(amount);
    } catch (const automation::VbError&) {
        Fail(where, "amount out of range");
    }
}

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

std::vector<Item> ParseItems(const json& document) {
    const json& items = Array(Required(document, "", "items"), "items", false);
    std::vector<Item> parsed;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::string where = Element("items", i);
        const json& object = Object(items[i], where, {"description", "price", "quantity", "rate"});
        Item item;
        item.description =
            Text(Required(object, where, "description"), Member(where, "description"));
        const std::string priceAt = Member(where, "price");
        const double price = Number(Required(object, where, "price"), priceAt);
        if (price < 0) Fail(priceAt, "expected a price of 0 or more");
        item.price = Money(price, priceAt);
        item.quantity =
            PositiveNumber(Required(object, where, "quantity"), Member(where, "quantity"));
        item.rate = Number(Required(object, where, "rate"), Member(where, "rate"));
        parsed.push_back(std::move(item));
    }
    return parsed;
}

std::vector<Discount> ParseDiscounts(const json& document) {
    std::vector<Discount> parsed;
    const json* discounts = Optional(document, "discounts");
    if (!discounts) return parsed;
    Array(*discounts, "discounts", true);
    for (std::size_t i = 0; i < discounts->size(); ++i) {
        const std::string where = Element("discounts", i);
        const json& object = Object((*discounts)[i], where, {"percent", "amount"});
        if (object.contains("percent") == object.contains("amount"))
            Fail(where, "give either percent or amount");
        Discount discount;
        if (const json* percent = Optional(object, "percent")) {
            discount.percent = PositiveNumber(*percent, Member(where, "percent"));
        } else {
            const std::string at = Member(where, "amount");
            discount.amount = Money(PositiveNumber(object.at("amount"), at), at);
        }
        parsed.push_back(discount);
    }
    return parsed;
}

std::vector<Payment> ParsePayments(const json& document) {
    const json& payments = Array(Required(document, "", "payments"), "payments", false);
    std::vector<Payment> parsed;
    for (std::size_t i = 0; i < payments.size(); ++i) {
        const std::string where = Element("payments", i);
        const json& object = Object(payments[i], where, {"means", "amount"});
        const std::string meansAt = Member(where, "means");
        const json& means = Required(object, where, "means");
        if (!means.is_number_integer() || means.get<std::int64_t>() < 1 ||
            means.get<std::int64_t>() > 99)
            Fail(meansAt, "expected a means number from 1 to 99");
        const std::string amountAt = Member(where, "amount");
        const double amount = Number(Required(object, where, "amount"), amountAt);
        if (amount < 0) Fail(amountAt, "expected an amount of 0 or more");
        parsed.push_back({static_cast<int>(means.get<std::int64_t>()), Money(amount, amountAt)});
    }
    return parsed;
}

InvoiceReference ParseInvoice(const json& value) {
    const std::string where = "invoice";
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

json ParseJson(std::string_view text) {
    try {
        return json::parse(text);
    } catch (const json::parse_error& e) {
        // Drop the library's "[json.exception.parse_error.101] " tag; keep line and column.
        std::string what = e.what();
        const std::size_t tag = what.find("] ");
        Fail("", "not valid JSON: " + (tag == std::string::npos ? what : what.substr(tag + 2)));
    }
}

}  // namespace

std::string ReadDocumentFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw DocumentFileError(std::string("cannot be read: ") + std::strerror(errno));
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

Sale ParseSale(std::string_view text) {
    const json document = ParseJson(text);
    Object(document, "", {"customer", "items", "discounts", "payments"});
    Sale sale;
    if (const json* customer = Optional(document, "customer"))
        sale.customer = ParseCustomer(*customer, "customer");
    sale.items = ParseItems(document);
    sale.discounts = ParseDiscounts(document);
    sale.payments = ParsePayments(document);
    return sale;
}

CreditNote ParseCreditNote(std::string_view text) {
    const json document = ParseJson(text);
    Object(document, "", {"customer", "invoice", "items", "payments"});
    CreditNote note;
    note.customer = ParseCustomer(Required(document, "", "customer"), "customer");
    note.invoice = ParseInvoice(Required(document, "", "invoice"));
    note.items = ParseItems(document);
    note.payments = ParsePayments(document);
    return note;
}

}  // namespace corvid::tool
