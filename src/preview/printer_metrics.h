// Converting printer measures to inches.
#pragma once

#include <cstdint>

#include "preview/printer_device.h"

namespace corvid::preview {

// Inches per unit of a scale mode. Points share the twips factor (1/1440), as the report has
// always measured them; user-defined and pixel modes have no factor and give 0.
double ScaleToInches(std::int16_t scale_mode);
// Width in inches of `count` letters "n" in the printer's current font.
double TextWidthInches(PrinterDevice& printer, std::int16_t count);

}  // namespace corvid::preview
