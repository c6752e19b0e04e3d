#include "sim/document_flow.h"

#include "sim/receipt.h"

namespace corvid::sim {

namespace {

long& LastNumber(FiscalState& state, DocumentKind kind) {
    switch (kind) {
        case DocumentKind::Invoice:
            return state.lastInvoice;
        case DocumentKind::CreditNote:
            return state.lastCreditNote;
        case DocumentKind::NonFiscal:
            break;
    }
    return state.lastNonFiscal;
}

int DateNumber(const std::tm& t) {
    return (t.tm_year % 100) * 10000 + (t.tm_mon + 1) * 100 + t.tm_mday;
}

}  // namespace

void OpenDocument(FiscalState& state, DocumentKind kind) {
    Document& document = state.document ? *state.document : state.document.emplace();
    document.kind = kind;
    document.training = state.training;
    long& last = LastNumber(state, kind);
    document.number = last + 1;
    if (!document.training) {
        last = document.number;
        // The date the invoice carries is the one printed in its heading.
        if (kind == DocumentKind::Invoice) state.lastInvoiceAt = StampOf(state.Now());
    }
    state.paper.Print(DocumentHeading(state, document));
}

void FinishDocument(FiscalState& state, Cents change) {
    const Document& document = *state.document;
    if (change > 0) state.paper.Print(AmountLine("CAMBIO", change));
    state.paper.Print(DocumentEnding(state, document));
    Lines printed = state.paper.Cut();
    if (!document.training) {
        SlotAmounts taxes = TaxesOf(document.bases, state.rates);
        switch (*document.kind) {
            case DocumentKind::Invoice:
                state.day.sales.Add(document.bases, taxes, document.payments, change);
                break;
            case DocumentKind::CreditNote:
                state.day.creditNotes.Add(document.bases, taxes, document.payments, change);
                break;
            case DocumentKind::NonFiscal:
                ++state.day.nonFiscal;
                break;
        }
        if (document.IsFiscal()) {
            state.issued.push_back(
                {*document.kind, document.number, DateNumber(state.Now()), std::move(printed)});
        }
    }
    state.document.reset();
}

void CancelDocument(FiscalState& state) {
    const Document& document = *state.document;
    if (document.kind) {
        state.paper.Print({Rule(), Centered("*** DOCUMENTO ANULADO ***")});
        state.paper.Cut();
        if (!document.training) ++(document.IsFiscal() ? state.day.cancelled : state.day.nonFiscal);
    }
    state.document.reset();
}

}  // namespace corvid::sim
