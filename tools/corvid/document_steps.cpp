#include "corvid/document_steps.h"

#include <cstdio>

#include "automation/dates.h"
#include "text/windows_1252.h"

namespace corvid::tool {

namespace {

using automation::Currency;

std::string MoneyText(Currency amount) {
    const std::int64_t scaled = amount.scaled();
    const std::uint64_t magnitude =
        scaled < 0 ? 0 - static_cast<std::uint64_t>(scaled) : static_cast<std::uint64_t>(scaled);
    const std::uint64_t fraction = magnitude % Currency::kScale;
    char text[48];
    // Two decimals unless the amount has more.
    if (fraction % 100 == 0) {
        std::snprintf(text, sizeof text, "%s%llu.%02llu", scaled < 0 ? "-" : "",
                      static_cast<unsigned long long>(magnitude / Currency::kScale),
                      static_cast<unsigned long long>(fraction / 100));
    } else {
        std::snprintf(text, sizeof text, "%s%llu.%04llu", scaled < 0 ? "-" : "",
                      static_cast<unsigned long long>(magnitude / Currency::kScale),
                      static_cast<unsigned long long>(fraction));
    }
    return text;
}

std::string NumberText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", value);
    return text;
}

std::string DateText(automation::Date date) {
    const automation::DateParts parts = automation::SplitDate(date);
    char text[16];
    std::snprintf(text, sizeof text, "%02d-%02d-%04d", parts.day % 100, parts.month % 100,
                  parts.year % 10000);
    return text;
}

std::string TimeText(automation::Date time) {
    const automation::DateParts parts = automation::SplitDate(time);
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", parts.hour % 100, parts.minute % 100,
                  parts.second % 100);
    return text;
}

// The address as the session takes it: lines joined by CR LF.
std::string AddressText(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\r\n") + line;
    return text;
}

std::string ItemLabel(const char* kind, std::size_t number, const Item& item) {
    return std::string(kind) + " " + std::to_string(number) + ": " +
           text::Utf8FromWindows1252(item.description) + ", " + NumberText(item.quantity) + " x " +
           MoneyText(item.price) + " at " + NumberText(item.rate) + "%";
}

std::string PaymentLabel(std::size_t number, const Payment& payment) {
    char means[8];
    std::snprintf(means, sizeof means, "%02d", payment.means % 100);
    return "payment " + std::to_string(number) + ": means " + means + ", " +
           MoneyText(payment.amount);
}

std::string CustomerLabel(const Customer& customer) {
    return "customer: " + text::Utf8FromWindows1252(customer.name) + ", RIF " +
           text::Utf8FromWindows1252(customer.rif) +
           (customer.address.empty()
                ? ""
                : ", " + std::to_string(customer.address.size()) + " address line" +
                      (customer.address.size() == 1 ? "" : "s"));
}

}  // namespace

Steps SaleSteps(const Sale& sale) {
    Steps steps;
    if (sale.customer) {
        const Customer customer = *sale.customer;
        steps.push_back({CustomerLabel(customer), [customer](DocumentPrinter& p) {
                             p.PasarDatosCliente(customer.name, customer.rif,
                                                 AddressText(customer.address));
                         }});
    }
    for (std::size_t i = 0; i < sale.items.size(); ++i) {
        const Item item = sale.items[i];
        steps.push_back({ItemLabel("item", i + 1, item), [item](DocumentPrinter& p) {
                             p.PasarItem(item.description, item.price, item.quantity, item.rate);
                         }});
    }
    steps.push_back({"subtotal", [](DocumentPrinter& p) { p.SubTotal(); }});
    for (std::size_t i = 0; i < sale.discounts.size(); ++i) {
        const Discount discount = sale.discounts[i];
        const std::string label = "discount " + std::to_string(i + 1) + ": ";
        if (discount.percent) {
            const double percent = *discount.percent;
            steps.push_back({label + NumberText(percent) + "% off the subtotal",
                             [percent](DocumentPrinter& p) { p.PasarDescuento(percent); }});
        } else {
            const Currency amount = *discount.amount;
            steps.push_back({label + MoneyText(amount) + " off the subtotal",
                             [amount](DocumentPrinter& p) { p.PasarMontoDescuento(amount); }});
        }
    }
    for (std::size_t i = 0; i < sale.payments.size(); ++i) {
        const Payment payment = sale.payments[i];
        steps.push_back({PaymentLabel(i + 1, payment), [payment](DocumentPrinter& p) {
                             p.CerrarConMedio(payment.means, payment.amount);
                         }});
    }
    return steps;
}

Steps CreditNoteSteps(const CreditNote& note) {
    Steps steps;
    const Customer customer = note.customer;
    const InvoiceReference invoice = note.invoice;
    steps.push_back({CustomerLabel(customer) + "; invoice " +
                         text::Utf8FromWindows1252(invoice.number) + " of printer " +
                         text::Utf8FromWindows1252(invoice.serial) + ", " + DateText(invoice.date),
                     [customer, invoice](DocumentPrinter& p) {
                         p.PasarDatosClienteNC(customer.name, customer.rif,
                                               AddressText(customer.address), invoice.number,
                                               invoice.serial, invoice.date);
                     }});
    for (std::size_t i = 0; i < note.items.size(); ++i) {
        const Item item = note.items[i];
        steps.push_back({ItemLabel("refund", i + 1, item), [item](DocumentPrinter& p) {
                             p.RefundItem(item.description, item.price, item.quantity, item.rate);
                         }});
    }
    for (std::size_t i = 0; i < note.payments.size(); ++i) {
        const Payment payment = note.payments[i];
        steps.push_back({PaymentLabel(i + 1, payment), [payment](DocumentPrinter& p) {
                             p.CerrarNotaCreditoConMedio(payment.means, payment.amount);
                         }});
    }
    return steps;
}

Steps NonFiscalSteps(const std::vector<std::string>& lines) {
    Steps steps;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string text = lines[i];
        const bool last = i + 1 == lines.size();
        steps.push_back({"line " + std::to_string(i + 1) + (last ? " (closes): " : ": ") +
                             text::Utf8FromWindows1252(text),
                         [text, last](DocumentPrinter& p) { p.PrintNoFiscal(text, last); }});
    }
    return steps;
}

Step ReportStep(char kind) {
    const std::string type(1, kind);
    return {kind == 'Z' ? "Z report (the daily closure)" : "X report",
            [type](DocumentPrinter& p) { p.ReporteDiario("0", type); }};
}

Step HeaderStep(int line, const std::string& text) {
    return {"header line " + std::to_string(line) + ": " + text::Utf8FromWindows1252(text),
            [line, text](DocumentPrinter& p) { p.SetHeader(line, text); }};
}

Step FooterStep(int line, const std::string& text) {
    return {"footer line " + std::to_string(line) + ": " + text::Utf8FromWindows1252(text),
            [line, text](DocumentPrinter& p) { p.SetFooter(line, text); }};
}

Step SetDateStep(automation::Date date) {
    return {"printer date " + DateText(date), [date](DocumentPrinter& p) { p.SetDate(date); }};
}

Step SetTimeStep(automation::Date time) {
    return {"printer time " + TimeText(time), [time](DocumentPrinter& p) { p.SetTime(time); }};
}

}  // namespace corvid::tool
