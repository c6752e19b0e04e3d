#include "corvid/test_mode_settings.h"

namespace corvid::tool {

TestModeSettings::TestModeSettings(bool on) {
    if (on) override_.emplace("TestMode", [](const std::string&) { return "True"; });
}

}  // namespace corvid::tool
