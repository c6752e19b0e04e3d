#include "host/settings_store.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "automation/conversions.h"
#include "automation/replaceable.h"
#include "automation/variant.h"
#include "automation/vb_error.h"
#include "host/platform_settings_source.h"

namespace corvid::host {
namespace {

automation::Replaceable<std::shared_ptr<SettingsSource>>& SourceSlot() {
    static automation::Replaceable<std::shared_ptr<SettingsSource>> source(
        MakePlatformSettingsSource);
    return source;
}

// The leading number of the text as currency; a run-time error when there is none or it
// does not fit.
automation::Currency LeadingCurrency(std::string_view text) {
    const std::optional<double> number = automation::TryLeadingNumber(text);
    if (!number) throw automation::VbError::Standard(automation::vb_errors::kTypeMismatch);
    return automation::Currency::FromDouble(*number);
}

}  // namespace

SettingsSource& CurrentSettingsSource() { return *SourceSlot().Get(); }

std::shared_ptr<SettingsSource> ReplaceSettingsSource(std::shared_ptr<SettingsSource> source) {
    return SourceSlot().Replace(std::move(source));
}

std::string GetSettingString(const std::string& application, const std::string& section,
                             const std::string& key, const std::string& fallback) {
    SettingsSource& source = CurrentSettingsSource();
    const std::string file = ".\\" + application + ".ini";
    std::string value = source.ReadIniFile(file, section, key);
    if (value.empty()) value = source.ReadUserSetting(application, section, key, fallback);
    return value;
}

bool GetSettingBool(const std::string& application, const std::string& section,
                    const std::string& key, bool fallback) {
    const std::string text =
        GetSettingString(application, section, key, fallback ? "True" : "False");
    try {
        return automation::CBoolText(text);
    } catch (const automation::VbError&) {
        return fallback;
    }
}

automation::Currency GetSettingNumber(const std::string& application, const std::string& section,
                                      const std::string& key, automation::Currency fallback) {
    const std::string text = GetSettingString(application, section, key,
                                              automation::CStr(automation::Variant(fallback)));
    std::string with_points = text;
    std::replace(with_points.begin(), with_points.end(), ',', '.');
    try {
        return LeadingCurrency(with_points);
    } catch (const automation::VbError&) {
    }
    try {
        return LeadingCurrency(text);
    } catch (const automation::VbError&) {
        return fallback;
    }
}

}  // namespace corvid::host
