// Non-fiscal lines, daily reports, header and footer lines, date and time, cashier,
// training mode, flags and reprints.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/variant.h"

namespace corvid::documents {

// "800" and the first 40 characters, or "810" for the line that also closes the document.
std::string PrintNoFiscalCommand(std::string_view text, bool close);
std::string ReporteDiarioCommand(std::string_view rango, std::string_view tipo);
// "PH", the line number as text, the text centred and padded to 40.
std::string SetHeaderCommand(const automation::Variant& lineNumber, std::string_view text);
// "PH", Chr(line + 64) (A for line 1), the text centred and padded to 40.
std::string SetFooterCommand(std::int32_t lineNumber, std::string_view text);
// "PG" ddmmyy and "PF" hhnnss.
std::string SetDateCommand(const automation::Variant& date);
std::string SetTimeCommand(const automation::Variant& time);
// "5" and the cashier in five digits.
std::string LoginCommand(const automation::Variant& cajero);
inline constexpr const char* kLogoffCommand = "6";
inline constexpr const char* kStartTrainingCommand = "T1";
inline constexpr const char* kEndTrainingCommand = "T2";
// "PJ", flag and value in two digits each.
std::string SetFlagCommand(const automation::Variant& flag, const automation::Variant& value);
// "R", the command letter, the two limits: dates ("0" yymmdd) for a lowercase letter,
// seven-digit numbers otherwise.
std::string ReprintCommand(std::string_view cmd, const automation::Variant& from,
                           const automation::Variant& to);

}  // namespace corvid::documents
