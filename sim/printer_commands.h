// The printer's command set by group; each function registers the handlers of its group.
// Every handler says what its command does and when the printer refuses it with NAK; a
// refused command changes nothing and leaves STS2 at 0x60 until a command is accepted.
//
// Refusals common to all groups: a command no group knows, and a field that does not have
// the form its command needs (a digit where a letter belongs, a number of the wrong width,
// a date that does not exist).
#pragma once

#include "sim/command_table.h"

namespace corvid::sim {

// Status records "S1" (short or long layout, see FiscalState), "S2" (the open document),
// "S3" (rates and flags), "S4" (the day's payments by means); the daily summary "U0X" (the
// day so far) and "U0Z" (the last closing) in the model's layout (see daily_summary.h);
// closings kept in fiscal memory "U3A".
void RegisterStatusCommands(CommandTable& table);
// Customer data: "iS*", "iR*", "iF*", "iI*", "iD*", "i" + 2 digits; "jS", "jR", "jF" (also
// with "*"), "j" + digit.
void RegisterCustomerCommands(CommandTable& table);
// Item lines (classic sale, refund and void; "F+", "F-", "C+", "C-"), subtotal "3" / "4",
// discounts and surcharges "p", "q", "GP", "GM".
void RegisterItemCommands(CommandTable& table);
// Payments "1", "2", credit-note closing "f", cancel "7".
void RegisterClosingCommands(CommandTable& table);
// Non-fiscal lines "800" and "810".
void RegisterNonFiscalCommands(CommandTable& table);
// Daily reports "I0X" and "I0Z", reprints "R".
void RegisterReportCommands(CommandTable& table);
// Header and footer "PH", date "PG", time "PF", flags "PJ", cashier "5" / "6", training
// "T1" / "T2", cash drawer "w".
void RegisterSetupCommands(CommandTable& table);

}  // namespace corvid::sim
