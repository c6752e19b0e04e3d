#include "service/bounded_waits.h"

#include <string>

#include "host/library_settings.h"

namespace corvid::service {
namespace {

constexpr const char* kMaxWait = "MaxWait";
constexpr const char* kServiceMaxWait = "5";

class BoundedMaxWait : public host::SettingsSource {
  public:
    explicit BoundedMaxWait(std::shared_ptr<host::SettingsSource> settings)
        : settings_(std::move(settings)) {}

    std::string ReadIniFile(const std::string& file, const std::string& section,
                            const std::string& key) override {
        std::string value = settings_->ReadIniFile(file, section, key);
        return IsMaxWait(section, key) && !Bounded(value) ? std::string() : value;
    }
    std::string ReadUserSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& fallback) override {
        if (application != host::kApplication || !IsMaxWait(section, key)) {
            return settings_->ReadUserSetting(application, section, key, fallback);
        }
        std::string value = settings_->ReadUserSetting(application, section, key, kServiceMaxWait);
        return Bounded(value) ? value : kServiceMaxWait;
    }

  private:
    static bool IsMaxWait(const std::string& section, const std::string& key) {
        return section == host::kSessionSection && key == kMaxWait;
    }
    static bool Bounded(const std::string& value) {
        try {
            return std::stod(value) > 0;
        } catch (const std::exception&) {
            return false;
        }
    }

    std::shared_ptr<host::SettingsSource> settings_;
};

}  // namespace

BoundedWaits::BoundedWaits() : previous_(host::ReplaceSettingsSource(nullptr)) {
    host::ReplaceSettingsSource(std::make_shared<BoundedMaxWait>(previous_));
}

BoundedWaits::~BoundedWaits() { host::ReplaceSettingsSource(previous_); }

}  // namespace corvid::service
