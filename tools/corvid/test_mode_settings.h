// --test-mode: the library's "TestMode" setting reads as on while the tool runs, whatever
// the ini file and the per-user store say; every other setting is read as usual.
#pragma once

#include <optional>

#include "host/setting_override.h"

namespace corvid::tool {

class TestModeSettings {
  public:
    // Does nothing when `on` is false.
    explicit TestModeSettings(bool on);

  private:
    std::optional<host::SettingOverride> override_;
};

}  // namespace corvid::tool
