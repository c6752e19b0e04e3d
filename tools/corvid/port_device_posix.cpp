#include "corvid/port_device.h"
#include "serial/port_devices.h"

namespace corvid::tool {

std::string DeviceOfPort(std::int16_t port) { return serial::PortDevicePath(port); }
bool CanOpenDeviceFiles() { return true; }

}  // namespace corvid::tool
