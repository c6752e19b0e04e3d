#include "host/setting_override.h"

#include "host/library_settings.h"

namespace corvid::host {
namespace {

class Overridden : public SettingsSource {
  public:
    Overridden(std::shared_ptr<SettingsSource> settings, std::string key,
               SettingOverride::Rule rule)
        : settings_(std::move(settings)), key_(std::move(key)), rule_(std::move(rule)) {}

    std::string ReadIniFile(const std::string& file, const std::string& section,
                            const std::string& key) override {
        if (!IsOverridden(section, key)) return settings_->ReadIniFile(file, section, key);
        std::string stored = settings_->ReadIniFile(file, section, key);
        if (stored.empty()) stored = settings_->ReadUserSetting(kApplication, section, key, "");
        return rule_(stored);
    }
    std::string ReadUserSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& fallback) override {
        if (application != kApplication || !IsOverridden(section, key)) {
            return settings_->ReadUserSetting(application, section, key, fallback);
        }
        return rule_(settings_->ReadUserSetting(application, section, key, ""));
    }

  private:
    bool IsOverridden(const std::string& section, const std::string& key) const {
        return section == kSessionSection && key == key_;
    }

    std::shared_ptr<SettingsSource> settings_;
    std::string key_;
    SettingOverride::Rule rule_;
};

}  // namespace

SettingOverride::SettingOverride(std::string key, Rule rule)
    : previous_(ReplaceSettingsSource(nullptr)) {
    ReplaceSettingsSource(std::make_shared<Overridden>(previous_, std::move(key), std::move(rule)));
}

SettingOverride::~SettingOverride() { ReplaceSettingsSource(previous_); }

}  // namespace corvid::host
