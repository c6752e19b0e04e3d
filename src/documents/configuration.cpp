#include "documents/configuration.h"

#include "automation/format.h"
#include "automation/vb_error.h"
#include "documents/text_helpers.h"

namespace corvid::documents {
namespace {

constexpr int kLineWidth = 40;

std::string FortyColumns(std::string_view text) {
    return PadRightCut(CenterCut(text, kLineWidth), kLineWidth);
}

// "a" <= cmd <= "z" in binary order: a lowercase command letter takes dates.
bool TakesDates(std::string_view cmd) { return cmd >= "a" && cmd <= "z"; }

std::string ReprintLimit(bool dates, const automation::Variant& limit) {
    return dates ? "0" + automation::Format(limit, "yymmdd") : automation::Format(limit, "0000000");
}

}  // namespace

std::string PrintNoFiscalCommand(std::string_view text, bool close) {
    return std::string(close ? "810" : "800") + std::string(text.substr(0, kLineWidth));
}

std::string ReporteDiarioCommand(std::string_view rango, std::string_view tipo) {
    return "I" + std::string(rango) + std::string(tipo);
}

std::string SetHeaderCommand(const automation::Variant& lineNumber, std::string_view text) {
    return "PH" + automation::CStr(lineNumber) + FortyColumns(text);
}

std::string SetFooterCommand(std::int32_t lineNumber, std::string_view text) {
    const std::int32_t code = lineNumber + 64;
    if (code < 0 || code > 255) {
        throw automation::VbError::Standard(automation::vb_errors::kInvalidProcedureCall);
    }
    return "PH" + std::string(1, static_cast<char>(code)) + FortyColumns(text);
}

std::string SetDateCommand(const automation::Variant& date) {
    return "PG" + automation::Format(date, "ddmmyy");
}

std::string SetTimeCommand(const automation::Variant& time) {
    return "PF" + automation::Format(time, "hhnnss");
}

std::string LoginCommand(const automation::Variant& cajero) {
    return "5" + automation::Format(cajero, "00000");
}

std::string SetFlagCommand(const automation::Variant& flag, const automation::Variant& value) {
    return "PJ" + automation::Format(flag, "00") + automation::Format(value, "00");
}

std::string ReprintCommand(std::string_view cmd, const automation::Variant& from,
                           const automation::Variant& to) {
    const bool dates = TakesDates(cmd);
    return "R" + std::string(cmd) + ReprintLimit(dates, from) + ReprintLimit(dates, to);
}

}  // namespace corvid::documents
