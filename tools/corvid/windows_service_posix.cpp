#include <ostream>

#include "corvid/command_line.h"
#include "corvid/windows_service.h"

namespace corvid::tool {

std::string WindowsServiceRefusal() {
    return "--windows-service is for Windows; on Linux let systemd run corvid serve";
}

int RunAsWindowsService(const std::filesystem::path&, const ServiceBody&, std::ostream& err) {
    err << "corvid serve: " << WindowsServiceRefusal() << "\n";
    return kExitFailed;
}

}  // namespace corvid::tool
