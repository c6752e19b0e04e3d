#include "preview/printer_error.h"

#include "automation/vb_error.h"

namespace corvid::preview {

void RaisePrinterError() { throw automation::VbError(kPrinterError, {}, "Printer error"); }

void RaiseNoPrinterInstalled() {
    throw automation::VbError(kPrinterError, {}, "Printer error: no printer is installed");
}

}  // namespace corvid::preview
