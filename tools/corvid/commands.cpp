#include "corvid/commands.h"

#include <ostream>

#include "corvid/command_line.h"
#include "jobs/step_runner.h"
#include "session/framing.h"
#include "session/printer_fiscal.h"
#include "text/windows_1252.h"

namespace corvid::tool {

namespace {

void ShowFailure(const session::PrinterFiscal& printer, std::ostream& out) {
    jobs::ExplainFailure(printer.outcome(), printer.explainSTS1(), printer.explainSTS2(), "  ",
                         out);
}

bool PrinterAccepted(const session::PrinterFiscal& printer) {
    return jobs::Accepted(printer.outcome());
}

// A failed reply comes back as the single field "pfError": a marker, not the printer's.
bool IsFailureMarker(const session::Fields& fields) {
    return fields.size() == 1 && fields[0] == "pfError";
}

}  // namespace

int SendCommand(session::PrinterFiscal& printer, const std::string& command, std::ostream& out) {
    out << "Send " << text::Utf8FromWindows1252(session::EscapeString(command)) << "\n";
    printer.Execute(command);
    if (!PrinterAccepted(printer)) {
        ShowFailure(printer, out);
        return kExitFailed;
    }
    out << "  accepted; status: " << text::Utf8FromWindows1252(printer.explainSTS1()) << "; "
        << text::Utf8FromWindows1252(printer.explainSTS2()) << "\n";
    return kExitAccepted;
}

int QueryCommand(session::PrinterFiscal& printer, const std::string& command, std::ostream& out) {
    out << "Query " << text::Utf8FromWindows1252(session::EscapeString(command)) << "\n";
    const auto blocks = printer.GetMultipleResponses(command);
    if (!PrinterAccepted(printer) || (blocks.size() == 1 && IsFailureMarker(blocks[0]))) {
        ShowFailure(printer, out);
        return kExitFailed;
    }
    for (std::size_t b = 0; b < blocks.size(); ++b) {
        out << "  block " << b + 1 << ":";
        for (const std::string& field : blocks[b])
            out << " [" << text::Utf8FromWindows1252(field) << "]";
        out << "\n";
    }
    return kExitAccepted;
}

}  // namespace corvid::tool
