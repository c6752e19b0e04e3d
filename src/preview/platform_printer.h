// The platform's own printer, made once when the default printer is first asked for.
#pragma once

#include <memory>

#include "preview/printer_device.h"

namespace corvid::preview {

std::shared_ptr<PrinterDevice> MakePlatformPrinter();

}  // namespace corvid::preview
