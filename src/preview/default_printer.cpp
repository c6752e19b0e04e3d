#include "automation/replaceable.h"
#include "preview/platform_printer.h"
#include "preview/printer_device.h"

namespace corvid::preview {
namespace {

automation::Replaceable<std::shared_ptr<PrinterDevice>>& Replacement() {
    static automation::Replaceable<std::shared_ptr<PrinterDevice>> printer;
    return printer;
}

}  // namespace

// The platform's printer is looked up again for each report, so that a printer installed or
// chosen as default while the host runs serves the next report.
std::shared_ptr<PrinterDevice> DefaultPrinter() {
    if (auto printer = Replacement().Get()) return printer;
    return MakePlatformPrinter();
}

std::shared_ptr<PrinterDevice> ReplaceDefaultPrinter(std::shared_ptr<PrinterDevice> printer) {
    return Replacement().Replace(std::move(printer));
}

}  // namespace corvid::preview
