// What each of the tool's documents sends, as a list of steps: a label for the person
// watching and the session call that makes the step. Building the list sends nothing.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "automation/variant.h"
#include "corvid/document_files.h"
#include "corvid/document_printer.h"

namespace corvid::tool {

struct Step {
    std::string label;  // UTF-8
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

}  // namespace corvid::tool
