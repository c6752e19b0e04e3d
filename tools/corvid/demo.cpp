#include "corvid/demo.h"

#include <ostream>
#include <sstream>
#include <vector>

#include "corvid/command_line.h"
#include "corvid/embedded_samples.h"
#include "corvid/session_document_printer.h"
#include "corvid/simulated_printer.h"
#include "corvid/status_commands.h"
#include "jobs/step_runner.h"
#include "session/printer_fiscal.h"

namespace corvid::tool {

namespace {

// Shows what came out of the printer since the last call, framed like a strip of paper.
class PaperView {
  public:
    explicit PaperView(const SimulatedPrinter& simulator) : simulator_(simulator) {}

    void ShowNew(std::ostream& out) {
        const std::string text = simulator_.PrintedText();
        std::istringstream fresh(text.size() > seen_ ? text.substr(seen_) : std::string());
        seen_ = text.size();
        std::vector<std::string> lines;
        for (std::string line; std::getline(fresh, line);) lines.push_back(line);
        while (!lines.empty() && lines.back().empty()) lines.pop_back();
        const std::string edge = "  +" + std::string(kColumns + 2, '-') + "+\n";
        out << edge;
        for (const std::string& line : lines) {
            const std::size_t width = Characters(line);
            out << "  | " << line << std::string(width < kColumns ? kColumns - width : 0, ' ')
                << " |\n";
        }
        out << edge;
    }

  private:
    static constexpr std::size_t kColumns = 40;  // the printer's paper width

    // Characters of UTF-8 text: bytes that do not continue a sequence.
    static std::size_t Characters(const std::string& utf8) {
        std::size_t count = 0;
        for (unsigned char byte : utf8) count += (byte & 0xC0) != 0x80;
        return count;
    }

    const SimulatedPrinter& simulator_;
    std::size_t seen_ = 0;
};

bool RunDocument(const char* title, const jobs::Steps& steps, jobs::DocumentPrinter& printer,
                 PaperView& paper, std::ostream& out) {
    out << "\n== " << title << "\n";
    const bool accepted = jobs::RunSteps(printer, steps, out);
    out << "\n   What the printer printed:\n";
    paper.ShowNew(out);
    return accepted;
}

}  // namespace

int RunDemo(session::PrinterFiscal& printer, const SimulatedPrinter& simulator, std::ostream& out) {
    SessionDocumentPrinter documents(printer);
    PaperView paper(simulator);
    bool accepted = true;
    accepted &= RunDocument("A sale (samples/sale.json)",
                            jobs::SaleSteps(jobs::ParseSale(kSampleSale)), documents, paper, out);
    accepted &= RunDocument("A credit note (samples/credit_note.json)",
                            jobs::CreditNoteSteps(jobs::ParseCreditNote(kSampleCreditNote)),
                            documents, paper, out);
    accepted &= RunDocument("The X report", {jobs::ReportStep('X')}, documents, paper, out);
    out << "\n== The Z report (the daily closure) and the summary the printer keeps of it\n";
    accepted &= CloseDay(printer, Output::kText, out) == kExitAccepted;
    out << "\n   What the printer printed:\n";
    paper.ShowNew(out);
    out << (accepted ? "\nDemo finished: the printer accepted every step.\n"
                     : "\nDemo finished with refusals.\n");
    return accepted ? kExitAccepted : kExitFailed;
}

}  // namespace corvid::tool
