#include "serial/port_devices.h"

#include <map>

#include "host/settings_store.h"

namespace corvid::serial {
namespace {

std::map<int, std::string>& Overrides() {
    static std::map<int, std::string> overrides;
    return overrides;
}

}  // namespace

void SetPortDevice(int port, const std::string& path) {
    if (path.empty()) {
        Overrides().erase(port);
    } else {
        Overrides()[port] = path;
    }
}

std::string PortDevicePath(int port) {
    auto found = Overrides().find(port);
    if (found != Overrides().end()) return found->second;
    return host::GetSettingString("ORV", "Config\\ModComm", "Device" + std::to_string(port),
                                  "/dev/ttyS" + std::to_string(port - 1));
}

}  // namespace corvid::serial
