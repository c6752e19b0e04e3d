#include "serial/port_devices.h"

#include <map>

#include "host/settings_store.h"
#include "serial/network_address.h"
#include "serial/network_device.h"
#include "serial/socket.h"

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

std::unique_ptr<SerialDevice> OpenPortDevice(int port, const std::string& name,
                                             SystemFailure& failure) {
    const std::string device = PortDevicePath(port);
    if (!IsNetworkDevice(device)) return OpenSerialDevice(port, name, failure);
    auto address = ParseNetworkAddress(device);
    if (!address) {
        failure = NetworkFailure("CreateFile", NetworkProblem::kInvalidArgument);
        return nullptr;
    }
    return OpenNetworkDevice(*address, failure);
}

}  // namespace corvid::serial
