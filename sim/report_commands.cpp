// Daily reports and reprints; both print documents of their own, so they are refused while
// a document is open.
#include <algorithm>

#include "sim/daily_summary.h"
#include "sim/field_reader.h"
#include "sim/printer_commands.h"
#include "sim/receipt.h"

namespace corvid::sim {

namespace {

// "I0X" prints the day's totals so far. "I0Z" prints them as the daily closing, writes the
// closing to fiscal memory, counts it and starts a new day; refused in training mode and
// when fiscal memory cannot be written. Other ranges or kinds are refused.
CommandAnswer DailyReportCommand(std::string_view command, FiscalState& state) {
    if (command != "I0X" && command != "I0Z") return CommandAnswer::Refuse("unknown report");
    if (state.document) return CommandAnswer::Refuse("document open");
    if (command == "I0X") {
        ++state.reportCounter;
        state.paper.Print(DailyReport(state, "REPORTE X", state.reportCounter));
        state.paper.Cut();
        return CommandAnswer::Ack();
    }
    if (state.training) return CommandAnswer::Refuse("daily closing in training");
    const ClosureRecord record = NextClosure(state);
    // Memory first: a closing that is not kept must not be printed or counted.
    if (!state.memory.Keep(record)) return CommandAnswer::Refuse("fiscal memory not written");
    state.paper.Print(DailyReport(state, "REPORTE Z", record.number));
    state.paper.Cut();
    state.closures = record.number;
    state.day = DayTotals{};
    return CommandAnswer::Ack();
}

// "R" + letter + two 7-character limits: "F" reprints invoices by number ("0000123"),
// "f" by date of issue ("0yymmdd"). Refused: another letter, limits out of order, a range
// holding no invoice.
CommandAnswer Reprint(std::string_view command, FiscalState& state) {
    FieldReader reader(command.substr(1));
    auto letter = reader.Byte();
    auto from = reader.Digits(7);
    auto to = reader.Digits(7);
    if (!letter || !from || !to || !reader.AtEnd() || *from > *to) {
        return CommandAnswer::Refuse("malformed reprint");
    }
    if (*letter != 'F' && *letter != 'f') return CommandAnswer::Refuse("unknown document letter");
    if (state.document) return CommandAnswer::Refuse("document open");
    const bool byDate = *letter == 'f';
    auto inRange = [&](const IssuedDocument& issued) {
        long key = byDate ? issued.date : issued.number;
        return issued.kind == DocumentKind::Invoice && key >= *from && key <= *to;
    };
    if (std::none_of(state.issued.begin(), state.issued.end(), inRange)) {
        return CommandAnswer::Refuse("nothing to reprint");
    }
    for (const IssuedDocument& issued : state.issued) {
        if (!inRange(issued)) continue;
        state.paper.Print(Centered("*** COPIA ***"));
        state.paper.Print(issued.lines);
        state.paper.Cut();
    }
    return CommandAnswer::Ack();
}

}  // namespace

void RegisterReportCommands(CommandTable& table) {
    table.Register("I", DailyReportCommand);
    table.Register("R", Reprint);
}

}  // namespace corvid::sim
