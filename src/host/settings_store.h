// Settings readers: a value is looked up first in ".\<application>.ini" and then in the
// per-user store. An empty entry in the file counts as absent.
#pragma once

#include <memory>
#include <string>

#include "automation/currency.h"

namespace corvid::host {

// Where values come from; the process uses the platform's, tests install their own.
class SettingsSource {
  public:
    virtual ~SettingsSource() = default;
    // The value in the ini file, or empty when the file, section or key is absent.
    virtual std::string ReadIniFile(const std::string& file, const std::string& section,
                                    const std::string& key) = 0;
    // The per-user value, or `fallback` when it is absent.
    virtual std::string ReadUserSetting(const std::string& application, const std::string& section,
                                        const std::string& key, const std::string& fallback) = 0;
};

// The process-wide source (the platform's unless replaced).
SettingsSource& CurrentSettingsSource();
// Replaces the process-wide source; returns the previous one. Used by tests.
std::shared_ptr<SettingsSource> ReplaceSettingsSource(std::shared_ptr<SettingsSource> source);

std::string GetSettingString(const std::string& application, const std::string& section,
                             const std::string& key, const std::string& fallback);
bool GetSettingBool(const std::string& application, const std::string& section,
                    const std::string& key, bool fallback);
automation::Currency GetSettingNumber(const std::string& application, const std::string& section,
                                      const std::string& key, automation::Currency fallback);

}  // namespace corvid::host
