// `corvid serve --windows-service`: the print service as the Windows service manager runs
// it (the installer registers it as CorvidService). What the service prints goes to
// service.log in its data folder, and a stop or a shutdown from the manager stops it the way
// Ctrl-C stops it in a console.
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>

namespace corvid::tool {

// Runs the service, writing to `log`; calls `ready` once it is listening.
using ServiceBody = std::function<int(std::ostream& log, const std::function<void()>& ready)>;

// Why this system cannot run the service under the Windows service manager; empty where it can.
std::string WindowsServiceRefusal();

// Hands the process to the service manager, which calls `serve`; returns its exit status.
// Run from a console instead, it says so on `err` and fails.
int RunAsWindowsService(const std::filesystem::path& logFile, const ServiceBody& serve,
                        std::ostream& err);

}  // namespace corvid::tool
