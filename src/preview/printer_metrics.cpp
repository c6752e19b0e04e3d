#include "preview/printer_metrics.h"

#include "preview/vb_strings.h"

namespace corvid::preview {

double ScaleToInches(std::int16_t scale_mode) {
    switch (scale_mode) {
        case scale_modes::kTwips:
        case scale_modes::kPoints:
            return 1.0 / 1440;
        case scale_modes::kCharacters:
            return 120.0 / 1440;
        case scale_modes::kInches:
            return 1;
        case scale_modes::kMillimetres:
            return 1 / 25.4;
        case scale_modes::kCentimetres:
            return 1 / 2.54;
        default:
            return 0;
    }
}

double TextWidthInches(PrinterDevice& printer, std::int16_t count) {
    return printer.TextWidth(Repeat(count, 'n')) * ScaleToInches(printer.ScaleMode());
}

}  // namespace corvid::preview
