// A print job as a program sends it to the service: which printer, what kind of document,
// and the document in the same JSON the tool's files hold.
//   {"printer": "front" (optional), "type": "sale" | "credit-note" | "nonfiscal" |
//    "report-x" | "report-z", "document": {...} (none for reports)}
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "jobs/documents.h"

namespace corvid::jobs {

enum class JobType { kSale, kCreditNote, kNonFiscal, kReportX, kReportZ };

std::string_view NameOf(JobType type);
std::optional<JobType> JobTypeNamed(std::string_view name);

// Non-fiscal text: its lines in the printer's code page.
struct NonFiscalText {
    std::vector<std::string> lines;
};
struct Report {};

using Document = std::variant<Sale, CreditNote, NonFiscalText, Report>;

struct JobRequest {
    std::optional<std::string> printer;
    JobType type = JobType::kSale;
    Document document;
    // The request written back with sorted keys and no spaces: two requests are the
    // same job exactly when these match.
    std::string canonical;
};

// Throws DocumentError naming the place, in the same words the tool prints for a file
// ("document.items[1].price: expected a number, found a string", "type: ...").
JobRequest ParseJobRequest(std::string_view body);

}  // namespace corvid::jobs
