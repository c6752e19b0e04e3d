// Installs this platform's preview window for every report the process creates from now
// on: a real window on Windows, nothing elsewhere (reports then go to the report sink).
// Hosts with a desktop (the COM server, the corvid tool) call it once at start-up.
#pragma once

namespace corvid::preview {

void InstallPlatformQuickViewWindow();

}  // namespace corvid::preview
