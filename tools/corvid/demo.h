// `corvid demo`: a sale and a credit note from the sample files, then an X report, on the
// built-in simulated printer, each followed by the paper the printer printed.
#pragma once

#include <iosfwd>

namespace corvid::session {
class PrinterFiscal;
}

namespace corvid::tool {

class SimulatedPrinter;

int RunDemo(session::PrinterFiscal& printer, const SimulatedPrinter& simulator, std::ostream& out);

}  // namespace corvid::tool
