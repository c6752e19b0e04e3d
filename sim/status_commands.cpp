// Status records and reads of the day's summary and of fiscal memory. They print nothing
// and change nothing, so they are answered whatever document is open.
#include "sim/daily_summary.h"
#include "sim/field_reader.h"
#include "sim/printer_commands.h"

namespace corvid::sim {

namespace {

CommandAnswer Fields(const std::vector<std::string>& fields) {
    return CommandAnswer::Data({JoinFields(fields)});
}

CommandAnswer StatusS1(std::string_view, FiscalState& state) { return Fields(state.S1Fields()); }

CommandAnswer StatusS3(std::string_view, FiscalState& state) { return Fields(state.S3Fields()); }

int DocumentCode(const Document* document) {
    if (document == nullptr) return 0;
    switch (*document->kind) {
        case DocumentKind::Invoice:
            return 1;
        case DocumentKind::CreditNote:
            return 2;
        case DocumentKind::NonFiscal:
            break;
    }
    return 3;
}

// "S2": the open document. 0 the echo, a blank and the subtotal of the bases; 1 the taxes;
// 2 the document's number; 3 the quantity sold, voids deducted, with a decimal point
// ("2.5"); 4 the total; 5 how many payments were made; 6 the kind (0 none, 1 invoice,
// 2 credit note, 3 non-fiscal). Customer data alone is no document yet.
CommandAnswer StatusS2(std::string_view command, FiscalState& state) {
    if (command != "S2") return CommandAnswer::Refuse("malformed status request");
    const Document* document = state.document && state.document->kind ? &*state.document : nullptr;
    const SlotAmounts bases = document ? document->bases : SlotAmounts{};
    const Cents taxes = Sum(TaxesOf(bases, state.rates));
    std::int64_t quantity = 0;
    if (document) {
        for (const StandingItem& item : document->items) quantity += item.quantity;
    }
    std::string items = FormatDecimal({quantity, 3}, true);
    if (auto comma = items.find(','); comma != std::string::npos) items[comma] = '.';
    return Fields({"S2 " + HundredthsField(Sum(bases)), HundredthsField(taxes),
                   ZeroPadded(document ? document->number : 0, 8), items,
                   HundredthsField(Sum(bases) + taxes),
                   std::to_string(document ? document->payments.size() : 0),
                   std::to_string(DocumentCode(document))});
}

// "S4": what the day's invoices were paid with, means 01 to 24, change deducted; the echo
// stands before the first amount.
CommandAnswer StatusS4(std::string_view command, FiscalState& state) {
    if (command != "S4") return CommandAnswer::Refuse("malformed status request");
    std::vector<std::string> fields;
    for (int means = 1; means <= kMeansOfPayment; ++means) {
        fields.push_back(HundredthsField(state.day.sales.byMeans[means]));
    }
    fields[0].insert(0, "S4");
    return Fields(fields);
}

// "U0X": the day so far; "U0Z": the last closing. Both in the model's summary layout.
CommandAnswer Summary(std::string_view command, FiscalState& state) {
    if (command != "U0X" && command != "U0Z") return CommandAnswer::Refuse("unknown upload");
    const ClosureRecord record = command == "U0X" ? DaySoFar(state) : LastClosure(state);
    return Fields(SummaryFields(record, SummaryLayoutFor(state.variant())));
}

// "U3A" + two six-digit closing numbers: one block per closing of the range in fiscal
// memory. Refused: limits out of order, and a range that holds no closing, since then
// there is nothing to send.
CommandAnswer FiscalMemoryRange(std::string_view command, FiscalState& state) {
    FieldReader reader(command.substr(3));
    auto from = reader.Digits(6);
    auto to = reader.Digits(6);
    if (!from || !to || !reader.AtEnd() || *from > *to) {
        return CommandAnswer::Refuse("malformed closing range");
    }
    std::vector<std::string> blocks;
    for (const ClosureRecord& record : state.memory.Range(*from, *to)) {
        blocks.push_back(JoinFields(ClosureRowFields(record)));
    }
    if (blocks.empty()) return CommandAnswer::Refuse("no closing in range");
    return CommandAnswer::Data(std::move(blocks));
}

}  // namespace

void RegisterStatusCommands(CommandTable& table) {
    table.Register("S1", StatusS1);
    table.Register("S2", StatusS2);
    table.Register("S3", StatusS3);
    table.Register("S4", StatusS4);
    table.Register("U0", Summary);
    table.Register("U3A", FiscalMemoryRange);
}

}  // namespace corvid::sim
