// Print jobs as programs post them, and the steps each job becomes.
#include "jobs/job_request.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "jobs/steps.h"

namespace corvid::jobs {
namespace {

using ::testing::StartsWith;

TEST(JobRequest, AMistakeIsNamedWithItsPlaceInTheJob) {
    const std::string item = R"({"description": "A", "price": 1, "quantity": 1, "rate": 16})";
    struct Row {
        std::string body, message;
    };
    const Row rows[] = {
        {R"([])", "expected an object, found an array"},
        {R"({"type": "sale", "document": {}, "copies": 2})",
         "copies: unknown field (expected printer, type, document)"},
        {R"({"document": {}})", "type: missing"},
        {R"({"type": "invoice"})",
         "type: expected one of sale, credit-note, nonfiscal, report-x, report-z, found "
         "\"invoice\""},
        {R"({"type": "report-x", "printer": ""})", "printer: expected a printer's name"},
        {R"({"type": "report-x", "printer": 3})", "printer: expected a string, found a number"},
        {R"({"type": "sale"})", "document: missing"},
        {R"({"type": "sale", "document": {"items": [)" + item +
             R"(], "payments": [{"means": 1, "amount": "5"}]}})",
         "document.payments[0].amount: expected a number, found a string"},
        {R"({"type": "credit-note", "document": {"items": []}})", "document.customer: missing"},
        {R"({"type": "nonfiscal", "document": {"lines": []}})",
         "document.lines: expected at least one entry"},
        {R"({"type": "nonfiscal", "document": {"lines": ["a", 2]}})",
         "document.lines[1]: expected a string, found a number"},
        {R"({"type": "nonfiscal", "document": ["a"]})",
         "document: expected an object, found an array"},
        {R"({"type": "report-z", "document": {"lines": ["a"]}})",
         "document: a report takes no document"},
    };
    for (const Row& row : rows) {
        std::string error = "(accepted)";
        try {
            ParseJobRequest(row.body);
        } catch (const DocumentError& e) {
            error = e.what();
        }
        EXPECT_THAT(error, StartsWith(row.message)) << row.body;
    }
}

TEST(JobRequest, TheSameJobWrittenTwoWaysHasOneCanonicalText) {
    const JobRequest a = ParseJobRequest(
        R"({"type":"nonfiscal","printer":"front","document":{"lines":["Caf\u00e9", "b"]}})");
    const JobRequest b = ParseJobRequest(
        "{ \"document\" : { \"lines\" : [ \"Caf\xC3\xA9\" , \"b\" ] },\n \"printer\": \"front\", "
        "\"type\": \"nonfiscal\" }");
    EXPECT_EQ(a.canonical,
              "{\"document\":{\"lines\":[\"Caf\xC3\xA9\",\"b\"]},\"printer\":\"front\","
              "\"type\":\"nonfiscal\"}");
    EXPECT_EQ(b.canonical, a.canonical);
    EXPECT_EQ(a.printer, "front");
    EXPECT_EQ(std::get<NonFiscalText>(a.document).lines,
              (std::vector<std::string>{"Caf\xE9", "b"}));
    for (const char* report :
         {R"({"type": "report-z"})", R"({"type": "report-z", "document": null})",
          R"({"type": "report-z", "document": {}})"}) {
        const JobRequest job = ParseJobRequest(report);
        EXPECT_EQ(job.type, JobType::kReportZ);
        EXPECT_FALSE(job.printer);
    }
}

// Each step as kind, then :quantity for items, #number for payments, ! when it closes.
std::string Outline(const Steps& steps) {
    std::string outline;
    for (const Step& step : steps) {
        outline += (outline.empty() ? "" : " ") + std::string(NameOf(step.kind));
        if (step.kind == StepKind::kItem) outline += ":" + std::to_string(step.quantityThousandths);
        if (step.paymentNumber != 0) outline += "#" + std::to_string(step.paymentNumber);
        if (step.closesDocument) outline += "!";
    }
    return outline;
}

TEST(JobSteps, EachStepSaysWhatItDoesToThePrintersDocument) {
    const std::string customer = R"("customer": {"name": "A", "rif": "V-1"})";
    const std::string items =
        R"("items": [{"description": "A", "price": 1, "quantity": 0.5, "rate": 16},
                     {"description": "B", "price": 2, "quantity": 1.2345, "rate": 0}])";
    const std::string payments =
        R"("payments": [{"means": 1, "amount": 1}, {"means": 2, "amount": 9}])";
    struct Row {
        std::string body, outline;
    };
    const Row rows[] = {
        {R"({"type": "sale", "document": {)" + customer + "," + items + "," + payments +
             R"(, "discounts": [{"percent": 5}]}})",
         "customer item:500 item:1235 subtotal discount payment#1 payment#2!"},
        {R"({"type": "credit-note", "document": {)" + customer +
             R"(, "invoice": {"number": "1", "serial": "Z", "date": "01-02-2024"},)" + items + "," +
             payments + "}}",
         "customer item:500 item:1235 payment#1 payment#2!"},
        {R"({"type": "nonfiscal", "document": {"lines": ["a", "b"]}})",
         "nonfiscal-line nonfiscal-line!"},
        {R"({"type": "report-x"})", "report!"},
    };
    for (const Row& row : rows) EXPECT_EQ(Outline(StepsOf(ParseJobRequest(row.body))), row.outline);
    EXPECT_EQ(StepsOf(ParseJobRequest(R"({"type": "report-z"})"))[0].label,
              "Z report (the daily closure)");
}

TEST(Samples, EverySampleFileIsAValidDocument) {
    int checked = 0;
    for (const auto& entry : std::filesystem::directory_iterator(CORVID_SAMPLES_DIR)) {
        std::ifstream in(entry.path(), std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        const std::string name = entry.path().filename().string();
        SCOPED_TRACE(name);
        if (name.rfind("credit_note", 0) == 0) {
            EXPECT_NO_THROW(ParseCreditNote(text.str()));
        } else {
            EXPECT_NO_THROW(ParseSale(text.str()));
        }
        ++checked;
    }
    EXPECT_GE(checked, 2);
}

}  // namespace
}  // namespace corvid::jobs
