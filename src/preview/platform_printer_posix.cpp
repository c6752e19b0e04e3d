#include "preview/no_printer.h"
#include "preview/platform_printer.h"

namespace corvid::preview {

// There is no Windows printer here: reports fit to a Letter page and printing fails.
std::shared_ptr<PrinterDevice> MakePlatformPrinter() { return std::make_shared<NoPrinter>(); }

}  // namespace corvid::preview
