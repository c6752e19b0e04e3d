// The daily summary and the closing records a host reads back, as field lists of a reply.
//
// Summary layouts by model (fields numbered from 0; "seven amounts" are the exempt amount,
// then base and tax at the general, reduced and additional rates):
//   DT230   20 fields: 0 closing, 1 its date, 2 last invoice, 3-4 its date and time,
//           5-11 sales, 12-18 credit notes, 19 last credit note.
//   SRP812  29 fields: 0 closing, 1-2 its date and time, 3 last invoice, 4-5 its date and
//           time, 6-12 sales, 13-19 debit notes, 20 last debit note, 21-27 credit notes,
//           28 last credit note.
//   HKA112  30 fields: 0 closing, 1-2, 3 last invoice, 4-5, 6 last debit note, 7 last
//           credit note, 8 last non-fiscal document, 9-15 sales, 16-22 debit notes, 23-29
//           credit notes.
//   SRP350  39 fields: the 30 above, then 30-32 the levy collected on sales, debit notes
//           and credit notes, 33-38 IGTF base and amount on sales, debit and credit notes.
//           No means of payment is in foreign currency here, so IGTF is always zero.
#pragma once

#include <string>
#include <vector>

#include "sim/fiscal_state.h"

namespace corvid::sim {

enum class SummaryLayout { Basic, Fields29, Fields30, Long };

SummaryLayout SummaryLayoutFor(Variant variant);

// The last closing as fiscal memory keeps it.
ClosureRecord LastClosure(const FiscalState& state);

// The day since the last closing: that closing's number and date, the document numbers so
// far and the day's amounts.
ClosureRecord DaySoFar(const FiscalState& state);

// The record the next closing writes: the day so far, numbered after the last closing and
// dated now.
ClosureRecord NextClosure(const FiscalState& state);

std::vector<std::string> SummaryFields(const ClosureRecord& record, SummaryLayout layout);

// One closing as a row of fiscal memory, 28 fields: 0 number, 1-2 date and time, 3 last
// invoice, 4-5 its date and time, 6-8 last debit note, credit note and non-fiscal document,
// 9-15 the seven sales amounts, 16-22 the seven debit-note amounts, 23-27 the credit notes'
// exempt amount and base and tax at the general and reduced rates.
std::vector<std::string> ClosureRowFields(const ClosureRecord& record);

}  // namespace corvid::sim
