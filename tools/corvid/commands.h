// The tool's exchange commands over an open session. Output is UTF-8 on `out`; each
// returns 0 when the printer accepted and answered.
#pragma once

#include <iosfwd>
#include <string>

namespace corvid::session {
class PrinterFiscal;
}

namespace corvid::tool {

// One checked exchange of `command` (printer code page) and its outcome.
int SendCommand(session::PrinterFiscal& printer, const std::string& command, std::ostream& out);
// The fields of every block of the reply to `command`.
int QueryCommand(session::PrinterFiscal& printer, const std::string& command, std::ostream& out);

}  // namespace corvid::tool
