// The settings source of this platform: the Windows profile reader and the registry's
// application-settings key on Windows; on POSIX an ini file in the current directory and a
// per-user ini file ($XDG_CONFIG_HOME/corvid/<application>.ini, by default
// ~/.config/corvid/<application>.ini) whose section names are the full section texts,
// such as [Config\NimbusPF\Tasas].
#pragma once

#include <memory>

#include "host/settings_store.h"

namespace corvid::host {

std::shared_ptr<SettingsSource> MakePlatformSettingsSource();

}  // namespace corvid::host
