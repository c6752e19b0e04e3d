#include <mutex>
#include <utility>

#include "preview/platform_printer.h"
#include "preview/printer_device.h"

namespace corvid::preview {
namespace {

std::mutex& Guard() {
    static std::mutex guard;
    return guard;
}

std::shared_ptr<PrinterDevice>& Replacement() {
    static std::shared_ptr<PrinterDevice> printer;
    return printer;
}

}  // namespace

// The platform's printer is looked up again for each report, so that a printer installed or
// chosen as default while the host runs serves the next report.
std::shared_ptr<PrinterDevice> DefaultPrinter() {
    {
        std::lock_guard lock(Guard());
        if (Replacement()) return Replacement();
    }
    return MakePlatformPrinter();
}

std::shared_ptr<PrinterDevice> ReplaceDefaultPrinter(std::shared_ptr<PrinterDevice> printer) {
    std::lock_guard lock(Guard());
    return std::exchange(Replacement(), std::move(printer));
}

}  // namespace corvid::preview
