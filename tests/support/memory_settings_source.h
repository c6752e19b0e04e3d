// An in-memory settings source for tests: ini-file values and per-user values are set
// separately and names compare without regard to case.
// ScopedSettingsSource installs one for the life of a test and restores the previous source.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <utility>

#include "host/settings_store.h"

namespace corvid::host {

class MemorySettingsSource : public SettingsSource {
  public:
    // A value of the file ".\<application>.ini" (the file the readers look in).
    void SetIniValue(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) {
        ini_[MakeKey(".\\" + application + ".ini", section, key)] = value;
    }
    // A value of the per-user store.
    void SetUserValue(const std::string& application, const std::string& section,
                      const std::string& key, const std::string& value) {
        user_[MakeKey(application, section, key)] = value;
    }
    void Clear() { ini_.clear(), user_.clear(); }

    std::string ReadIniFile(const std::string& file, const std::string& section,
                            const std::string& key) override {
        return Find(ini_, MakeKey(file, section, key), "");
    }
    std::string ReadUserSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& fallback) override {
        return Find(user_, MakeKey(application, section, key), fallback);
    }

  private:
    using Key = std::tuple<std::string, std::string, std::string>;
    static Key MakeKey(const std::string& a, const std::string& b, const std::string& c);
    static std::string Find(const std::map<Key, std::string>& values, const Key& key,
                            const std::string& fallback) {
        const auto found = values.find(key);
        return found == values.end() ? fallback : found->second;
    }

    std::map<Key, std::string> ini_;   // (file, section, key)
    std::map<Key, std::string> user_;  // (application, section, key)
};

class ScopedSettingsSource {
  public:
    explicit ScopedSettingsSource(
        std::shared_ptr<MemorySettingsSource> source = std::make_shared<MemorySettingsSource>())
        : source_(std::move(source)), previous_(ReplaceSettingsSource(source_)) {}
    ~ScopedSettingsSource() { ReplaceSettingsSource(std::move(previous_)); }
    ScopedSettingsSource(const ScopedSettingsSource&) = delete;
    ScopedSettingsSource& operator=(const ScopedSettingsSource&) = delete;

    MemorySettingsSource& source() { return *source_; }
    MemorySettingsSource* operator->() { return source_.get(); }

  private:
    std::shared_ptr<MemorySettingsSource> source_;
    std::shared_ptr<SettingsSource> previous_;
};

}  // namespace corvid::host
