#include "corvid/test_mode_settings.h"

#include <string>

#include "host/library_settings.h"

namespace corvid::tool {
namespace {

constexpr const char* kTestModeKey = "TestMode";

class TestModeOn : public host::SettingsSource {
  public:
    explicit TestModeOn(std::shared_ptr<host::SettingsSource> settings)
        : settings_(std::move(settings)) {}

    std::string ReadIniFile(const std::string& file, const std::string& section,
                            const std::string& key) override {
        if (IsTestMode(section, key)) return "True";
        return settings_->ReadIniFile(file, section, key);
    }
    std::string ReadUserSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& fallback) override {
        if (application == host::kApplication && IsTestMode(section, key)) return "True";
        return settings_->ReadUserSetting(application, section, key, fallback);
    }

  private:
    static bool IsTestMode(const std::string& section, const std::string& key) {
        return section == host::kSessionSection && key == kTestModeKey;
    }

    std::shared_ptr<host::SettingsSource> settings_;
};

}  // namespace

TestModeSettings::TestModeSettings(bool on) {
    if (!on) return;
    // The source in place stays in use behind the override; it is put back afterwards.
    previous_ = host::ReplaceSettingsSource(nullptr);
    host::ReplaceSettingsSource(std::make_shared<TestModeOn>(previous_));
}

TestModeSettings::~TestModeSettings() {
    if (previous_) host::ReplaceSettingsSource(previous_);
}

}  // namespace corvid::tool
