#include "host/library_settings.h"

#include "automation/conversions.h"
#include "automation/currency.h"
#include "automation/vb_error.h"
#include "host/settings_store.h"

namespace corvid::host {

double ReadNumberSetting(const std::string& key, double fallback) {
    return GetSettingNumber(kApplication, kSessionSection, key,
                            automation::Currency::FromDouble(fallback))
        .ToDouble();
}

std::optional<std::int16_t> ReadInt16Setting(const std::string& key, double fallback) {
    try {
        return automation::CInt(ReadNumberSetting(key, fallback));
    } catch (const automation::VbError&) {
        return std::nullopt;
    }
}

std::optional<std::int32_t> ReadInt32Setting(const std::string& key, double fallback) {
    try {
        return automation::CLng(ReadNumberSetting(key, fallback));
    } catch (const automation::VbError&) {
        return std::nullopt;
    }
}

bool ReadBoolSetting(const std::string& key, bool fallback) {
    return GetSettingBool(kApplication, kSessionSection, key, fallback);
}

}  // namespace corvid::host
