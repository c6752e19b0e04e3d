#include "support/memory_settings_source.h"

#include <utility>

#include "host/text_compare.h"

namespace corvid::host {

MemorySettingsSource::Key MemorySettingsSource::MakeKey(const std::string& a, const std::string& b,
                                                        const std::string& c) {
    return {UpperAscii(a), UpperAscii(b), UpperAscii(c)};
}

void MemorySettingsSource::SetIniValue(const std::string& application, const std::string& section,
                                       const std::string& key, const std::string& value) {
    ini_[MakeKey(".\\" + application + ".ini", section, key)] = value;
}

void MemorySettingsSource::SetUserValue(const std::string& application, const std::string& section,
                                        const std::string& key, const std::string& value) {
    user_[MakeKey(application, section, key)] = value;
}

void MemorySettingsSource::Clear() {
    ini_.clear();
    user_.clear();
}

std::string MemorySettingsSource::ReadIniFile(const std::string& file, const std::string& section,
                                              const std::string& key) {
    const auto found = ini_.find(MakeKey(file, section, key));
    return found == ini_.end() ? std::string() : found->second;
}

std::string MemorySettingsSource::ReadUserSetting(const std::string& application,
                                                  const std::string& section,
                                                  const std::string& key,
                                                  const std::string& fallback) {
    const auto found = user_.find(MakeKey(application, section, key));
    return found == user_.end() ? fallback : found->second;
}

ScopedSettingsSource::ScopedSettingsSource(std::shared_ptr<MemorySettingsSource> source)
    : source_(std::move(source)), previous_(ReplaceSettingsSource(source_)) {}

ScopedSettingsSource::~ScopedSettingsSource() { ReplaceSettingsSource(std::move(previous_)); }

}  // namespace corvid::host
