// What each document sends, as a list of steps: a label for the person watching, what the
// step does to the printer's document, and the session call that makes the step. Building
// the list sends nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/variant.h"
#include "jobs/document_printer.h"
#include "jobs/documents.h"
#include "jobs/job_request.h"

namespace corvid::jobs {

enum class StepKind {
    kCustomer,
    kItem,
    kSubtotal,
    kDiscount,
    kPayment,
    kNonFiscalLine,
    kReport,
    kSetting
};

// "customer", "item", "subtotal", "discount", "payment", "nonfiscal-line", "report",
// "setting".
std::string_view NameOf(StepKind kind);

struct Step {
    std::string label;  // UTF-8
    StepKind kind = StepKind::kSetting;
    std::int64_t quantityThousandths = 0;  // item: its quantity in thousandths
    int paymentNumber = 0;                 // payment: 1-based among the document's payments
    // The last payment, the last non-fiscal line, a report: the printer's document ends
    // with this step when it is accepted (a payment only once the total is covered).
    bool closesDocument = false;
    std::function<void(DocumentPrinter&)> call;
};
using Steps = std::vector<Step>;

// Customer data (when given), each item, the subtotal, each discount on it, each payment.
Steps SaleSteps(const Sale& sale);
// Customer data with the affected invoice, each item as a refund, each payment.
Steps CreditNoteSteps(const CreditNote& note);
// One non-fiscal line per text (printer code page); the last line closes the document.
Steps NonFiscalSteps(const std::vector<std::string>& lines);
// The daily report: 'X' (read only) or 'Z' (the daily closure).
Step ReportStep(char kind);
Step HeaderStep(int line, const std::string& text);
Step FooterStep(int line, const std::string& text);
Step SetDateStep(automation::Date date);
Step SetTimeStep(automation::Date time);
// The steps of any job.
Steps StepsOf(const JobRequest& job);

}  // namespace corvid::jobs
