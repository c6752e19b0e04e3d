#include "corvid/document_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "automation/dates.h"

namespace corvid::tool {
namespace {

std::string SaleError(const std::string& json) {
    try {
        ParseSale(json);
    } catch (const DocumentFileError& e) {
        return e.what();
    }
    return "(accepted)";
}

std::string CreditNoteError(const std::string& json) {
    try {
        ParseCreditNote(json);
    } catch (const DocumentFileError& e) {
        return e.what();
    }
    return "(accepted)";
}

const std::string kItem = R"({"description": "A", "price": 1, "quantity": 1, "rate": 16})";
const std::string kPayment = R"({"means": 1, "amount": 1})";

std::string SaleWith(const std::string& item, const std::string& extra = "") {
    return R"({"items": [)" + kItem + "," + item + R"(], "payments": [)" + kPayment + "]" + extra +
           "}";
}

TEST(DocumentFiles, AMalformedSaleNamesThePlaceAndWhatIsWrong) {
    struct Case {
        std::string json;
        std::string message;
    };
    const Case cases[] = {
        {R"({"items": [)", "not valid JSON: parse error at line 1, column 12"},
        {R"([])", "expected an object, found an array"},
        {R"({"payments": [)" + kPayment + "]}", "items: missing"},
        {R"({"items": [], "payments": [)" + kPayment + "]}", "items: expected at least one entry"},
        {SaleWith(R"({"description": "B", "price": "3", "quantity": 1, "rate": 16})"),
         "items[1].price: expected a number, found a string"},
        {SaleWith(R"({"description": "B", "prize": 3, "quantity": 1, "rate": 16})"),
         "items[1].prize: unknown field (expected description, price, quantity, rate)"},
        {SaleWith(R"({"description": "B", "price": 3, "quantity": 0, "rate": 16})"),
         "items[1].quantity: expected a number above 0"},
        {SaleWith(R"({"description": "B", "price": 3, "quantity": 1})"), "items[1].rate: missing"},
        {SaleWith(kItem, R"(, "discounts": [{"percent": 5, "amount": 2}])"),
         "discounts[0]: give either percent or amount"},
        {SaleWith(kItem, R"(, "customer": {"name": "X", "rif": "Y", "address": "Z"})"),
         "customer.address: expected an array, found a string"},
        {R"({"items": [)" + kItem + R"(], "payments": [{"means": 100, "amount": 1}]})",
         "payments[0].means: expected a means number from 1 to 99"},
        {R"({"items": [)" + kItem + R"(], "payments": [{"means": 1.5, "amount": 1}]})",
         "payments[0].means: expected a means number from 1 to 99"},
        {R"({"items": [)" + kItem + R"(], "payments": [{"means": 1, "amount": 1e30}]})",
         "payments[0].amount: amount out of range"},
    };
    for (const Case& c : cases) EXPECT_THAT(SaleError(c.json), ::testing::StartsWith(c.message));
}

TEST(DocumentFiles, ACreditNoteNeedsTheInvoiceWithARealDate) {
    const std::string head = R"({"customer": {"name": "A", "rif": "B"}, "items": [)" + kItem +
                             R"(], "payments": [)" + kPayment + "], ";
    EXPECT_EQ(CreditNoteError(head + R"("x": 1})"),
              "x: unknown field (expected customer, invoice, "
              "items, payments)");
    EXPECT_EQ(CreditNoteError(R"({"items": [)" + kItem + "]}"), "customer: missing");
    EXPECT_EQ(CreditNoteError(
                  head + R"("invoice": {"number": "1", "serial": "Z", "date": "31-04-2024"}})"),
              "invoice.date: expected a date written dd-mm-yyyy, found \"31-04-2024\"");
    EXPECT_EQ(CreditNoteError(
                  head + R"("invoice": {"number": "1", "serial": "Z", "date": "2024-04-30"}})"),
              "invoice.date: expected a date written dd-mm-yyyy, found \"2024-04-30\"");

    const CreditNote note = ParseCreditNote(
        head + R"("invoice": {"number": "1", "serial": "Z", "date": "29-02-2024"}})");
    EXPECT_EQ(note.invoice.date, automation::DateSerial(2024, 2, 29));
}

TEST(DocumentFiles, AmountsKeepTheirCentsAndTextsTakeThePrintersCodePage) {
    const Sale sale = ParseSale(
        R"({"items": [{"description": "Ca\u00f1a \u20ac", "price": 0.1, "quantity": 3,
                       "rate": 16}],
            "payments": [{"means": 1, "amount": 1234567.89}]})");
    EXPECT_EQ(sale.items[0].description,
              "Ca\xF1"
              "a \x80");
    EXPECT_EQ(sale.items[0].price.scaled(), 1000);
    EXPECT_EQ(sale.payments[0].amount.scaled(), 12345678900);
    EXPECT_FALSE(sale.customer.has_value());
}

}  // namespace
}  // namespace corvid::tool
