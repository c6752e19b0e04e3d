// The platform's own printer: the default printer as it is when a report is created.
#pragma once

#include <memory>

#include "preview/printer_device.h"

namespace corvid::preview {

std::shared_ptr<PrinterDevice> MakePlatformPrinter();

}  // namespace corvid::preview
