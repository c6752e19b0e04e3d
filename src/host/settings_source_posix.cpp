#include <algorithm>
#include <cstdlib>
#include <string>

#include "host/ini_file.h"
#include "host/platform_settings_source.h"

namespace corvid::host {
namespace {

std::string PerUserFile(const std::string& application) {
    const char* config_home = std::getenv("XDG_CONFIG_HOME");
    std::string folder;
    if (config_home != nullptr && *config_home != '\0') {
        folder = config_home;
    } else {
        const char* home = std::getenv("HOME");
        folder = std::string(home != nullptr ? home : "") + "/.config";
    }
    return folder + "/corvid/" + application + ".ini";
}

class PosixSettingsSource : public SettingsSource {
  public:
    std::string ReadIniFile(const std::string& file, const std::string& section,
                            const std::string& key) override {
        // The callers name the file the Windows way (".\ORV.ini").
        std::string path = file;
        std::replace(path.begin(), path.end(), '\\', '/');
        return ReadIniFileValue(path, section, key).value_or(std::string());
    }

    std::string ReadUserSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& fallback) override {
        return ReadIniFileValue(PerUserFile(application), section, key).value_or(fallback);
    }
};

}  // namespace

std::shared_ptr<SettingsSource> MakePlatformSettingsSource() {
    return std::make_shared<PosixSettingsSource>();
}

}  // namespace corvid::host
