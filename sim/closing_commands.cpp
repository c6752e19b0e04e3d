// Paying and closing. The first payment prints the bases, taxes and total; each payment is
// printed as it comes; the document ends once the payments reach the total.
#include "sim/document_flow.h"
#include "sim/field_reader.h"
#include "sim/printer_commands.h"
#include "sim/receipt.h"

namespace corvid::sim {

namespace {

// The open document of `kind` when it has items, else nothing.
Document* Payable(FiscalState& state, DocumentKind kind) {
    Document* document = state.document ? &*state.document : nullptr;
    if (document == nullptr || document->kind != kind || !document->HasItems()) return nullptr;
    return document;
}

void RecordPayment(FiscalState& state, Document& document, int means, Cents amount) {
    if (document.payments.empty()) {
        state.paper.Print(TotalsLines(document.bases, state.rates));
    }
    if (amount > 0) {
        document.payments.push_back({means, amount});
        state.paper.Print(PaymentLine(means, amount));
    }
}

// "1" + means pays what is left; "2" + means + amount pays that amount, and more payments
// may follow until the total is reached; what goes beyond it is given back as change.
// Refused: no invoice with items open, means outside 01 to 24, a payment of zero.
CommandAnswer Pay(std::string_view command, FiscalState& state) {
    FieldReader reader(command);
    const bool rest = reader.Skip("1");
    if (!rest) reader.Skip("2");
    auto means = reader.Digits(2);
    std::optional<Decimal> amount = rest ? Decimal{} : reader.Fixed(state.formats().payment);
    if (!means || !amount || !reader.AtEnd()) return CommandAnswer::Refuse("malformed payment");
    Document* document = Payable(state, DocumentKind::Invoice);
    if (document == nullptr) return CommandAnswer::Refuse("payment with no item");
    if (*means < 1 || *means > kMeansOfPayment) return CommandAnswer::Refuse("unknown means");
    const Cents total = TotalOf(document->bases, state.rates);
    const Cents paying = rest ? total - document->Paid() : ToCents(*amount);
    if (!rest && paying <= 0) return CommandAnswer::Refuse("payment of nothing");

    RecordPayment(state, *document, static_cast<int>(*means), paying);
    const Cents paid = document->Paid();
    if (paid >= total) FinishDocument(state, paid - total);
    return CommandAnswer::Ack();
}

// "f" + means + amount pays the refund of a credit note out; an amount of zero closes it
// with no further payment. Refused: no credit note with items open, means outside 01 to 24,
// more than is left to refund.
CommandAnswer CloseCreditNote(std::string_view command, FiscalState& state) {
    FieldReader reader(command.substr(1));
    auto means = reader.Digits(2);
    auto amount = reader.Fixed(state.formats().payment);
    if (!means || !amount || !reader.AtEnd()) return CommandAnswer::Refuse("malformed closing");
    Document* document = Payable(state, DocumentKind::CreditNote);
    if (document == nullptr) return CommandAnswer::Refuse("closing with no item");
    if (*means < 1 || *means > kMeansOfPayment) return CommandAnswer::Refuse("unknown means");
    const Cents total = TotalOf(document->bases, state.rates);
    const Cents paying = ToCents(*amount);
    if (paying > total - document->Paid()) return CommandAnswer::Refuse("refund beyond total");

    RecordPayment(state, *document, static_cast<int>(*means), paying);
    if (paying == 0 || document->Paid() == total) FinishDocument(state);
    return CommandAnswer::Ack();
}

// "7" cancels the open document. With nothing open it is accepted and does nothing: hosts
// send it to make sure no document is left over, and it also drops customer data that no
// item has used yet.
CommandAnswer Cancel(std::string_view command, FiscalState& state) {
    if (command.size() != 1) return CommandAnswer::Refuse("malformed cancel");
    if (state.document) CancelDocument(state);
    return CommandAnswer::Ack();
}

}  // namespace

void RegisterClosingCommands(CommandTable& table) {
    table.Register("1", Pay);
    table.Register("2", Pay);
    table.Register("f", CloseCreditNote);
    table.Register("7", Cancel);
}

}  // namespace corvid::sim
