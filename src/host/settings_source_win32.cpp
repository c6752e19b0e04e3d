#include <windows.h>

#include <string>
#include <vector>

#include "host/platform_settings_source.h"

namespace corvid::host {
namespace {

constexpr DWORD kProfileBufferSize = 1024;
constexpr const char* kApplicationSettingsKey = "Software\\VB and VBA Program Settings\\";

class Win32SettingsSource : public SettingsSource {
  public:
    std::string ReadIniFile(const std::string& file, const std::string& section,
                            const std::string& key) override {
        char buffer[kProfileBufferSize] = {};
        const DWORD count = GetPrivateProfileStringA(section.c_str(), key.c_str(), "", buffer,
                                                     kProfileBufferSize, file.c_str());
        return std::string(buffer, count);
    }

    std::string ReadUserSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& fallback) override {
        const std::string path = kApplicationSettingsKey + application + "\\" + section;
        HKEY handle = nullptr;
        if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE, &handle) !=
            ERROR_SUCCESS) {
            return fallback;
        }
        std::string value = fallback;
        DWORD type = 0;
        DWORD size = 0;
        if (RegQueryValueExA(handle, key.c_str(), nullptr, &type, nullptr, &size) ==
                ERROR_SUCCESS &&
            type == REG_SZ) {
            std::vector<char> data(size + 1, '\0');
            if (RegQueryValueExA(handle, key.c_str(), nullptr, &type,
                                 reinterpret_cast<BYTE*>(data.data()), &size) == ERROR_SUCCESS) {
                value.assign(data.data());  // stops at the terminating NUL
            }
        }
        RegCloseKey(handle);
        return value;
    }
};

}  // namespace

std::shared_ptr<SettingsSource> MakePlatformSettingsSource() {
    return std::make_shared<Win32SettingsSource>();
}

}  // namespace corvid::host
