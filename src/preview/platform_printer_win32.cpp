#include "preview/no_printer.h"
#include "preview/platform_printer.h"

namespace corvid::preview {

// The GDI printer arrives with the preview window; until then Windows has no printer either.
std::shared_ptr<PrinterDevice> MakePlatformPrinter() { return std::make_shared<NoPrinter>(); }

}  // namespace corvid::preview
