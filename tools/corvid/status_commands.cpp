#include "corvid/status_commands.h"

#include <functional>
#include <ostream>
#include <sstream>
#include <utility>

#include "automation/vb_error.h"
#include "corvid/command_line.h"
#include "corvid/record_views.h"
#include "jobs/step_runner.h"
#include "records/printer_model.h"
#include "records/resumen_z.h"
#include "session/printer_fiscal.h"
#include "text/windows_1252.h"

namespace corvid::tool {
namespace {

// The records never raise for a failed exchange: they come back as substitutes, and the
// outcome says whether the printer answered.
bool Answered(const session::PrinterFiscal& printer) {
    return jobs::Accepted(printer.outcome()) && printer.outcome().pfError == 0;
}

int Failure(const session::PrinterFiscal& printer, const char* what, Output output,
            std::ostream& out) {
    if (output == Output::kJson) {
        out << RecordView{{"error",
                           {{"query", what},
                            {"pfError", printer.outcome().pfError},
                            {"DescripcionError",
                             text::Utf8FromWindows1252(printer.outcome().DescripcionError)}}}}
                   .dump(2)
            << "\n";
    } else {
        out << what << ":\n";
        jobs::ExplainFailure(printer.outcome(), printer.explainSTS1(), printer.explainSTS2(), "  ",
                             out);
    }
    return kExitFailed;
}

// Runs one query. A printer that refuses a status command with NAK leaves an empty reply,
// which some records cannot read: the refusal is the news then, not the record's error.
template <class Query>
bool Ask(session::PrinterFiscal& printer, Query query, std::ostream& out) {
    try {
        query();
        return Answered(printer);
    } catch (const automation::VbError& error) {
        if (Answered(printer)) {
            out << "  the reply did not read: error " << error.number() << ", "
                << text::Utf8FromWindows1252(error.description()) << "\n";
        }
        return false;
    }
}

// Named views in order, printed as one JSON object or as titled groups of lines.
class Report {
  public:
    explicit Report(Output output) : output_(output) {}
    void Add(const std::string& title, RecordView view) { views_[title] = std::move(view); }
    int Print(std::ostream& out) const {
        if (output_ == Output::kJson) {
            out << views_.dump(2) << "\n";
        } else {
            for (const auto& [title, view] : views_.items()) {
                out << title << ":\n";
                if (view.is_object()) {
                    PrintView(view, out);
                } else {
                    for (const auto& item : view) {
                        PrintView(item, out);
                        out << "\n";
                    }
                }
            }
        }
        return kExitAccepted;
    }

  private:
    Output output_;
    RecordView views_ = RecordView::object();
};

}  // namespace

int ShowStatus(session::PrinterFiscal& printer, Output output, std::ostream& out) {
    printer.GetStatus();
    if (!Answered(printer)) return Failure(printer, "Status", output, out);
    Report report(output);
    report.Add("Status", {{"STS1", text::Utf8FromWindows1252(printer.explainSTS1())},
                          {"STS2", text::Utf8FromWindows1252(printer.explainSTS2())},
                          {"Serial", text::Utf8FromWindows1252(printer.SerialPrinter())},
                          {"model", records::ModelName(printer.tipoPrinter())}});
    const std::pair<const char*, std::function<RecordView()>> queries[] = {
        {"S1", [&] { return ViewOf(*printer.StatusS1()); }},
        {"S2", [&] { return ViewOf(*printer.StatusS2()); }},
        {"S3", [&] { return ViewOf(*printer.StatusS3()); }},
        {"S4", [&] { return ViewOf(*printer.Response4()); }},
    };
    for (const auto& [name, query] : queries) {
        RecordView view;
        if (!Ask(
                printer, [&] { view = query(); }, out)) {
            return Failure(printer, name, output, out);
        }
        report.Add(name, std::move(view));
    }
    return report.Print(out);
}

nlohmann::ordered_json SummaryUpload(session::PrinterFiscal& printer, const char* upload) {
    records::ResumenZ summary;
    std::vector<std::string> fields;
    std::ostringstream unread;  // the caller learns of a failure from the null
    if (!Ask(
            printer, [&] { fields = printer.GetResponse(upload); }, unread) ||
        fields.empty())
        return nullptr;
    summary.loadFromFields(fields);
    return ViewOf(summary);
}

int CloseDay(session::PrinterFiscal& printer, Output output, std::ostream& out) {
    // Not CerrarZ: after a closing refused with NAK it still reads the summary (of the last
    // closure), and only resultFlag tells the refusal. The tool must not show that as done.
    printer.Execute("I0Z");
    if (!Answered(printer)) return Failure(printer, "Z report (the daily closure)", output, out);
    return ShowSummary(printer, output, out);
}

int ShowSummary(session::PrinterFiscal& printer, Output output, std::ostream& out) {
    std::shared_ptr<records::ResumenZ> summary;
    if (!Ask(
            printer, [&] { summary = printer.ResumenZ(); }, out))
        return Failure(printer, "Summary", output, out);
    Report report(output);
    report.Add("Summary", ViewOf(*summary));
    return report.Print(out);
}

int ShowClosures(session::PrinterFiscal& printer, std::int32_t from, std::int32_t to, Output output,
                 std::ostream& out) {
    std::vector<std::shared_ptr<records::ReporteZMF>> closures;
    if (!Ask(
            printer, [&] { closures = printer.reportesZMF(from, to); }, out))
        return Failure(printer, "Fiscal memory", output, out);
    RecordView list = RecordView::array();
    for (const auto& closure : closures) list.push_back(ViewOf(*closure));
    Report report(output);
    report.Add("Closures", std::move(list));
    return report.Print(out);
}

}  // namespace corvid::tool
