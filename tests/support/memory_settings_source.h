// An in-memory settings source for tests: ini-file values and per-user values are set
// separately and names compare without regard to case.
// ScopedSettingsSource installs one for the life of a test and restores the previous source.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <tuple>

#include "host/settings_store.h"

namespace corvid::host {

class MemorySettingsSource : public SettingsSource {
  public:
    // A value of the file ".\<application>.ini" (the file the readers look in).
    void SetIniValue(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value);
    // A value of the per-user store.
    void SetUserValue(const std::string& application, const std::string& section,
                      const std::string& key, const std::string& value);
    void Clear();

    std::string ReadIniFile(const std::string& file, const std::string& section,
                            const std::string& key) override;
    std::string ReadUserSetting(const std::string& application, const std::string& section,
                                const std::string& key, const std::string& fallback) override;

  private:
    using Key = std::tuple<std::string, std::string, std::string>;
    static Key MakeKey(const std::string& a, const std::string& b, const std::string& c);

    std::map<Key, std::string> ini_;   // (file, section, key)
    std::map<Key, std::string> user_;  // (application, section, key)
};

class ScopedSettingsSource {
  public:
    explicit ScopedSettingsSource(
        std::shared_ptr<MemorySettingsSource> source = std::make_shared<MemorySettingsSource>());
    ~ScopedSettingsSource();
    ScopedSettingsSource(const ScopedSettingsSource&) = delete;
    ScopedSettingsSource& operator=(const ScopedSettingsSource&) = delete;

    MemorySettingsSource& source() { return *source_; }
    MemorySettingsSource* operator->() { return source_.get(); }

  private:
    std::shared_ptr<MemorySettingsSource> source_;
    std::shared_ptr<SettingsSource> previous_;
};

}  // namespace corvid::host
