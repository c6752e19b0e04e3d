// The report's printer-font tuning, read from the settings (application "ORV", section
// "FVIEW") when a report is created.
#pragma once

#include <cstdint>

namespace corvid::preview {

struct ViewSettings {
    double max_font_size = 14;     // "MaxFontSize": the size fitting starts from, in points
    float font_factor = 1;         // "FontFactor": applied to the fitted size
    std::int16_t font_offset = 0;  // "FontOffset": points added to the fitted size
};

// Each value is the number its text starts with (0 if none); the offset is rounded half to
// even, and one beyond the 16-bit range raises overflow.
ViewSettings ReadViewSettings();

}  // namespace corvid::preview
