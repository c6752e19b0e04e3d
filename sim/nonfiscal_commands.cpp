// Non-fiscal documents: "800" + text prints a line, opening the document if none is open;
// "810" + text prints the last line and closes it. Refused while a fiscal document (or its
// customer data) is open.
#include "sim/document_flow.h"
#include "sim/printer_commands.h"

namespace corvid::sim {

namespace {

CommandAnswer NonFiscalLine(std::string_view command, FiscalState& state) {
    if (state.document && state.document->kind != DocumentKind::NonFiscal) {
        return CommandAnswer::Refuse("fiscal document open");
    }
    if (!state.document) OpenDocument(state, DocumentKind::NonFiscal);
    state.paper.Print(command.substr(3));
    if (command[1] == '1') FinishDocument(state);
    return CommandAnswer::Ack();
}

}  // namespace

void RegisterNonFiscalCommands(CommandTable& table) {
    table.Register("800", NonFiscalLine);
    table.Register("810", NonFiscalLine);
}

}  // namespace corvid::sim
