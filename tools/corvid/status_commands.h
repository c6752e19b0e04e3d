// The tool's status commands: the printer's records as named fields, as text or as JSON
// for scripts. Each returns 0 when the printer answered.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <nlohmann/json.hpp>

namespace corvid::session {
class PrinterFiscal;
}

namespace corvid::tool {

enum class Output { kText, kJson };

// Status bytes in words, the serial and model, then the S1 to S4 records.
int ShowStatus(session::PrinterFiscal& printer, Output output, std::ostream& out);
// The summary of the day so far (the printer's "U0X") or of its last closing ("U0Z"), as
// `corvid summary` shows it; null when the printer gave no readable answer.
nlohmann::ordered_json SummaryUpload(session::PrinterFiscal& printer, const char* upload);
// Closes the day (Z) and shows the summary read after it.
int CloseDay(session::PrinterFiscal& printer, Output output, std::ostream& out);
// The summary of the last daily closure, closing nothing.
int ShowSummary(session::PrinterFiscal& printer, Output output, std::ostream& out);
// The closures `from` to `to` kept in fiscal memory.
int ShowClosures(session::PrinterFiscal& printer, std::int32_t from, std::int32_t to, Output output,
                 std::ostream& out);

}  // namespace corvid::tool
