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

std::shared_ptr<PrinterDevice>& Slot() {
    static std::shared_ptr<PrinterDevice> printer;
    return printer;
}

}  // namespace

std::shared_ptr<PrinterDevice> DefaultPrinter() {
    std::lock_guard lock(Guard());
    if (!Slot()) Slot() = MakePlatformPrinter();
    return Slot();
}

std::shared_ptr<PrinterDevice> ReplaceDefaultPrinter(std::shared_ptr<PrinterDevice> printer) {
    std::lock_guard lock(Guard());
    return std::exchange(Slot(), std::move(printer));
}

}  // namespace corvid::preview
