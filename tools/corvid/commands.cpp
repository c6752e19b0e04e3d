#include "corvid/commands.h"

#include <ostream>

#include "corvid/text_codec.h"
#include "session/framing.h"
#include "session/printer_fiscal.h"

namespace corvid::tool {

namespace {

const char* ModelName(std::int32_t model) {
    switch (model) {
        case session::SRP350:
            return "SRP350";
        case session::DT230:
            return "DT230";
        case session::HKA112:
            return "HKA112";
        case session::SRP812:
            return "SRP812";
        default:
            return "unknown";
    }
}

void ShowOutcome(const session::PrinterFiscal& printer, std::ostream& out) {
    out << "  pfError = " << printer.outcome().pfError << " ("
        << Cp1252ToUtf8(printer.outcome().DescripcionError) << "), resultFlag = "
        << Cp1252ToUtf8(session::EscapeString(
               std::string(1, static_cast<char>(printer.outcome().resultFlag))))
        << "\n";
}

}  // namespace

int ShowStatus(session::PrinterFiscal& printer, std::ostream& out) {
    printer.GetStatus();
    out << "Status:  " << Cp1252ToUtf8(printer.explainSTS1()) << ", "
        << Cp1252ToUtf8(printer.explainSTS2()) << "\n";
    if (printer.outcome().pfError != session::pfOk) {
        ShowOutcome(printer, out);
        return 1;
    }
    out << "Serial:  " << Cp1252ToUtf8(printer.SerialPrinter()) << " (model "
        << ModelName(printer.tipoPrinter()) << ")\n";
    const session::Fields fields = printer.GetResponse("S1");
    out << "S1 fields:\n";
    for (std::size_t i = 0; i < fields.size(); ++i) {
        out << "  [" << i << "] " << Cp1252ToUtf8(fields[i]) << "\n";
    }
    return fields.size() == 1 && fields[0] == "pfError" ? 1 : 0;
}

int SendCommand(session::PrinterFiscal& printer, const std::string& command, std::ostream& out) {
    out << "Send " << Cp1252ToUtf8(session::EscapeString(command)) << "\n";
    const std::int16_t outcome = printer.Execute(command);
    ShowOutcome(printer, out);
    return outcome == 0 && printer.outcome().resultFlag != session::NAK ? 0 : 1;
}

int QueryCommand(session::PrinterFiscal& printer, const std::string& command, std::ostream& out) {
    out << "Query " << Cp1252ToUtf8(session::EscapeString(command)) << "\n";
    const auto blocks = printer.GetMultipleResponses(command);
    for (std::size_t b = 0; b < blocks.size(); ++b) {
        out << "  block " << b + 1 << ":";
        for (const std::string& field : blocks[b]) out << " [" << Cp1252ToUtf8(field) << "]";
        out << "\n";
    }
    ShowOutcome(printer, out);
    return printer.outcome().pfError == session::pfOk ? 0 : 1;
}

}  // namespace corvid::tool
