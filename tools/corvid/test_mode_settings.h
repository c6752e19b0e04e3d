// --test-mode: the library's "TestMode" setting reads as on while the tool runs, whatever
// the ini file and the per-user store say; every other setting is read as usual.
#pragma once

#include <memory>

#include "host/settings_store.h"

namespace corvid::tool {

class TestModeSettings {
  public:
    // Does nothing when `on` is false.
    explicit TestModeSettings(bool on);
    ~TestModeSettings();
    TestModeSettings(const TestModeSettings&) = delete;
    TestModeSettings& operator=(const TestModeSettings&) = delete;

  private:
    std::shared_ptr<host::SettingsSource> previous_;
};

}  // namespace corvid::tool
