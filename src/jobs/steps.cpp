#include "jobs/steps.h"

#include <cmath>
#include <cstdio>
#include <utility>

#include "automation/dates.h"
#include "text/windows_1252.h"

namespace corvid::jobs {

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

Step MakeStep(std::string label, StepKind kind, std::function<void(DocumentPrinter&)> call) {
    Step step;
    step.label = std::move(label);
    step.kind = kind;
    step.call = std::move(call);
    return step;
}

Step ItemStep(const char* kind, std::size_t number, const Item& item, bool refund) {
    Step step = MakeStep(
        ItemLabel(kind, number, item), StepKind::kItem, [item, refund](DocumentPrinter& p) {
            if (refund) {
                p.RefundItem(item.description, item.price, item.quantity, item.rate);
            } else {
                p.PasarItem(item.description, item.price, item.quantity, item.rate);
            }
        });
    step.quantityThousandths = std::llround(item.quantity * 1000);
    return step;
}

// Each payment in turn; the last one closes the document.
void AddPayments(const std::vector<Payment>& payments, bool creditNote, Steps& steps) {
    for (std::size_t i = 0; i < payments.size(); ++i) {
        const Payment payment = payments[i];
        Step step = MakeStep(PaymentLabel(i + 1, payment), StepKind::kPayment,
                             [payment, creditNote](DocumentPrinter& p) {
                                 if (creditNote) {
                                     p.CerrarNotaCreditoConMedio(payment.means, payment.amount);
                                 } else {
                                     p.CerrarConMedio(payment.means, payment.amount);
                                 }
                             });
        step.paymentNumber = static_cast<int>(i + 1);
        step.closesDocument = i + 1 == payments.size();
        steps.push_back(std::move(step));
    }
}

Step DiscountStep(std::size_t number, const Discount& discount) {
    const std::string label = "discount " + std::to_string(number) + ": ";
    if (discount.percent) {
        const double percent = *discount.percent;
        return MakeStep(label + NumberText(percent) + "% off the subtotal", StepKind::kDiscount,
                        [percent](DocumentPrinter& p) { p.PasarDescuento(percent); });
    }
    const Currency amount = *discount.amount;
    return MakeStep(label + MoneyText(amount) + " off the subtotal", StepKind::kDiscount,
                    [amount](DocumentPrinter& p) { p.PasarMontoDescuento(amount); });
}

}  // namespace

std::string_view NameOf(StepKind kind) {
    switch (kind) {
        case StepKind::kCustomer:
            return "customer";
        case StepKind::kItem:
            return "item";
        case StepKind::kSubtotal:
            return "subtotal";
        case StepKind::kDiscount:
            return "discount";
        case StepKind::kPayment:
            return "payment";
        case StepKind::kNonFiscalLine:
            return "nonfiscal-line";
        case StepKind::kReport:
            return "report";
        case StepKind::kSetting:
            break;
    }
    return "setting";
}

Steps SaleSteps(const Sale& sale) {
    Steps steps;
    if (sale.customer) {
        const Customer customer = *sale.customer;
        steps.push_back(
            MakeStep(CustomerLabel(customer), StepKind::kCustomer, [customer](DocumentPrinter& p) {
                p.PasarDatosCliente(customer.name, customer.rif, AddressText(customer.address));
            }));
    }
    for (std::size_t i = 0; i < sale.items.size(); ++i)
        steps.push_back(ItemStep("item", i + 1, sale.items[i], false));
    steps.push_back(
        MakeStep("subtotal", StepKind::kSubtotal, [](DocumentPrinter& p) { p.SubTotal(); }));
    for (std::size_t i = 0; i < sale.discounts.size(); ++i)
        steps.push_back(DiscountStep(i + 1, sale.discounts[i]));
    AddPayments(sale.payments, false, steps);
    return steps;
}

Steps CreditNoteSteps(const CreditNote& note) {
    Steps steps;
    const Customer customer = note.customer;
    const InvoiceReference invoice = note.invoice;
    steps.push_back(MakeStep(
        CustomerLabel(customer) + "; invoice " + text::Utf8FromWindows1252(invoice.number) +
            " of printer " + text::Utf8FromWindows1252(invoice.serial) + ", " +
            DateText(invoice.date),
        StepKind::kCustomer, [customer, invoice](DocumentPrinter& p) {
            p.PasarDatosClienteNC(customer.name, customer.rif, AddressText(customer.address),
                                  invoice.number, invoice.serial, invoice.date);
        }));
    for (std::size_t i = 0; i < note.items.size(); ++i)
        steps.push_back(ItemStep("refund", i + 1, note.items[i], true));
    AddPayments(note.payments, true, steps);
    return steps;
}

Steps NonFiscalSteps(const std::vector<std::string>& lines) {
    Steps steps;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string text = lines[i];
        const bool last = i + 1 == lines.size();
        Step step = MakeStep("line " + std::to_string(i + 1) + (last ? " (closes): " : ": ") +
                                 text::Utf8FromWindows1252(text),
                             StepKind::kNonFiscalLine,
                             [text, last](DocumentPrinter& p) { p.PrintNoFiscal(text, last); });
        step.closesDocument = last;
        steps.push_back(std::move(step));
    }
    return steps;
}

Step ReportStep(char kind) {
    const std::string type(1, kind);
    Step step =
        MakeStep(kind == 'Z' ? "Z report (the daily closure)" : "X report", StepKind::kReport,
                 [type](DocumentPrinter& p) { p.ReporteDiario("0", type); });
    step.closesDocument = true;
    return step;
}

Step HeaderStep(int line, const std::string& text) {
    return MakeStep("header line " + std::to_string(line) + ": " + text::Utf8FromWindows1252(text),
                    StepKind::kSetting,
                    [line, text](DocumentPrinter& p) { p.SetHeader(line, text); });
}

Step FooterStep(int line, const std::string& text) {
    return MakeStep("footer line " + std::to_string(line) + ": " + text::Utf8FromWindows1252(text),
                    StepKind::kSetting,
                    [line, text](DocumentPrinter& p) { p.SetFooter(line, text); });
}

Step SetDateStep(automation::Date date) {
    return MakeStep("printer date " + DateText(date), StepKind::kSetting,
                    [date](DocumentPrinter& p) { p.SetDate(date); });
}

Step SetTimeStep(automation::Date time) {
    return MakeStep("printer time " + TimeText(time), StepKind::kSetting,
                    [time](DocumentPrinter& p) { p.SetTime(time); });
}

Steps StepsOf(const JobRequest& job) {
    switch (job.type) {
        case JobType::kSale:
            return SaleSteps(std::get<Sale>(job.document));
        case JobType::kCreditNote:
            return CreditNoteSteps(std::get<CreditNote>(job.document));
        case JobType::kNonFiscal:
            return NonFiscalSteps(std::get<NonFiscalText>(job.document).lines);
        case JobType::kReportX:
            return {ReportStep('X')};
        case JobType::kReportZ:
            break;
    }
    return {ReportStep('Z')};
}

}  // namespace corvid::jobs
