#include "jobs/job_request.h"

#include <array>
#include <utility>

#include "jobs/json_fields.h"

namespace corvid::jobs {

namespace {

using namespace fields;

constexpr std::array<std::pair<JobType, std::string_view>, 5> kTypeNames{{
    {JobType::kSale, "sale"},
    {JobType::kCreditNote, "credit-note"},
    {JobType::kNonFiscal, "nonfiscal"},
    {JobType::kReportX, "report-x"},
    {JobType::kReportZ, "report-z"},
}};

JobType TypeOf(const json& request) {
    const json& type = Required(request, "", "type");
    if (!type.is_string()) Fail("type", "expected a string, " + Found(type));
    const std::string name = type.get<std::string>();
    if (const auto known = JobTypeNamed(name)) return *known;
    std::string names;
    for (const auto& [kind, text] : kTypeNames)
        names += (names.empty() ? "" : ", ") + std::string(text);
    Fail("type", "expected one of " + names + ", found \"" + name + "\"");
}

std::optional<std::string> PrinterOf(const json& request) {
    const json* printer = Optional(request, "printer");
    if (!printer) return std::nullopt;
    if (!printer->is_string()) Fail("printer", "expected a string, " + Found(*printer));
    if (printer->get<std::string>().empty()) Fail("printer", "expected a printer's name");
    return printer->get<std::string>();
}

NonFiscalText NonFiscalFromJson(const json& document) {
    const std::string where = "document";
    Object(document, where, {"lines"});
    const std::string linesAt = Member(where, "lines");
    const json& lines = Array(Required(document, where, "lines"), linesAt, false);
    NonFiscalText text;
    for (std::size_t i = 0; i < lines.size(); ++i)
        text.lines.push_back(Text(lines[i], Element(linesAt, i)));
    return text;
}

Document DocumentOf(JobType type, const json& request) {
    const json* document = Optional(request, "document");
    if (type == JobType::kReportX || type == JobType::kReportZ) {
        const bool nothing =
            !document || document->is_null() || (document->is_object() && document->empty());
        if (!nothing) Fail("document", "a report takes no document (leave it out)");
        return Report{};
    }
    if (!document) Fail("document", "missing");
    switch (type) {
        case JobType::kSale:
            return SaleFromJson(*document, "document");
        case JobType::kCreditNote:
            return CreditNoteFromJson(*document, "document");
        default:
            return NonFiscalFromJson(*document);
    }
}

}  // namespace

std::string_view NameOf(JobType type) {
    for (const auto& [kind, name] : kTypeNames) {
        if (kind == type) return name;
    }
    return {};
}

std::optional<JobType> JobTypeNamed(std::string_view name) {
    for (const auto& [kind, text] : kTypeNames) {
        if (text == name) return kind;
    }
    return std::nullopt;
}

JobRequest ParseJobRequest(std::string_view body) {
    const json request = ParseJson(body);
    Object(request, "", {"printer", "type", "document"});
    JobRequest job;
    job.type = TypeOf(request);
    job.printer = PrinterOf(request);
    job.document = DocumentOf(job.type, request);
    job.canonical = request.dump();
    return job;
}

}  // namespace corvid::jobs
