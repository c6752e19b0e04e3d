#include "preview/view_settings.h"

#include "automation/conversions.h"
#include "host/settings_store.h"

namespace corvid::preview {
namespace {

double ReadNumber(const char* key, const char* fallback) {
    return automation::Val(host::GetSettingString("ORV", "FVIEW", key, fallback));
}

}  // namespace

ViewSettings ReadViewSettings() {
    ViewSettings settings;
    settings.max_font_size = ReadNumber("MaxFontSize", "14");
    settings.font_factor = static_cast<float>(ReadNumber("FontFactor", "1"));
    settings.font_offset = automation::CInt(ReadNumber("FontOffset", "0"));
    return settings;
}

}  // namespace corvid::preview
