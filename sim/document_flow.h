// Opening and ending documents: the number each gets, the parts printed at either end, what
// the day's totals take in and the copy kept for reprints. Handlers check first that the
// step makes sense; these functions only carry it out.
#pragma once

#include "sim/fiscal_state.h"

namespace corvid::sim {

// Gives the open document (customer data only, or none yet) its kind and next number, and
// prints its heading. In training mode the number is shown but not used up.
void OpenDocument(FiscalState& state, DocumentKind kind);

// Ends the open document: change, footer and mark, the day's totals, the cut.
void FinishDocument(FiscalState& state, Cents change = 0);

// Drops the open document. Customer data alone was never printed and simply goes; a
// document that was printed is marked cancelled and cut, and its number stays used.
void CancelDocument(FiscalState& state);

}  // namespace corvid::sim
