#include "preview/gdi_printer_win32.h"
#include "preview/no_printer.h"
#include "preview/platform_printer.h"
#include "preview/printer_dc_surface_win32.h"

namespace corvid::preview {

// The default printer as it is now; without one, reports still fit to a Letter page and
// printing tells the host that no printer is installed.
std::shared_ptr<PrinterDevice> MakePlatformPrinter() {
    if (auto surface = OpenDefaultPrinterSurface()) {
        return std::make_shared<GdiPrinter>(std::move(surface));
    }
    return std::make_shared<NoPrinter>();
}

}  // namespace corvid::preview
