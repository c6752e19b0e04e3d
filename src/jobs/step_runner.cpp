#include "jobs/step_runner.h"

#include <ostream>

#include "session/control_values.h"
#include "text/windows_1252.h"

namespace corvid::jobs {

bool Accepted(const session::ExchangeOutcome& outcome) {
    return outcome.pfError == session::pfOk && outcome.resultFlag != session::NAK;
}

void ExplainFailure(const session::ExchangeOutcome& outcome, const std::string& sts1,
                    const std::string& sts2, const char* indent, std::ostream& out) {
    const std::string words = text::Utf8FromWindows1252(outcome.DescripcionError);
    // The status bytes shown must be ones the printer sent for this command: a printer
    // that did not answer leaves zeros, and a command the library refused never left.
    if (outcome.pfError == session::pfCommError) {
        out << indent << "printer: no answer (" << words << ")\n"
            << indent << "status:  nothing was read from the printer\n";
        return;
    }
    if (outcome.pfError == session::pfClientError) {
        out << indent << "library: " << words << "\n"
            << indent << "status:  nothing was sent to the printer\n";
        return;
    }
    if (outcome.resultFlag == session::NAK) {
        out << indent << "printer: refused the command with NAK at every attempt";
        if (outcome.pfError != session::pfOk) out << " (" << words << ")";
        out << "\n";
    } else {
        out << indent << "printer: " << words << " (pfError " << outcome.pfError << ")\n";
    }
    out << indent << "status:  " << text::Utf8FromWindows1252(sts1) << "; "
        << text::Utf8FromWindows1252(sts2) << "\n";
}

bool RunSteps(DocumentPrinter& printer, const Steps& steps, std::ostream& out) {
    for (std::size_t i = 0; i < steps.size(); ++i) {
        steps[i].call(printer);
        const session::ExchangeOutcome& outcome = printer.outcome();
        if (Accepted(outcome)) {
            out << "  ok       " << steps[i].label << "\n";
            continue;
        }
        out << (outcome.pfError == session::pfCommError ? "  NO REPLY " : "  REFUSED  ")
            << steps[i].label << "\n";
        ExplainFailure(outcome, printer.explainSTS1(), printer.explainSTS2(), "           ", out);
        out << "Stopped at step " << i + 1 << " of " << steps.size()
            << ": nothing after it was sent.\n";
        return false;
    }
    return true;
}

}  // namespace corvid::jobs
