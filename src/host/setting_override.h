// One setting of the library's session section read through a rule while the object
// lives: the stored value (the ini file's, else the per-user store's, empty when absent)
// goes in, the value the library reads comes out. Every other setting reads as usual; the
// previous source is put back at the end.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/settings_store.h"

namespace corvid::host {

class SettingOverride {
  public:
    using Rule = std::function<std::string(const std::string& stored)>;

    SettingOverride(std::string key, Rule rule);
    ~SettingOverride();
    SettingOverride(const SettingOverride&) = delete;
    SettingOverride& operator=(const SettingOverride&) = delete;

  private:
    std::shared_ptr<SettingsSource> previous_;
};

}  // namespace corvid::host
