#include "corvid/port_device.h"

namespace corvid::tool {

std::string DeviceOfPort(std::int16_t port) { return "\\\\.\\COM" + std::to_string(port); }
// The library always opens "\\.\COMn" here; a device path would silently become COM1.
bool CanOpenDeviceFiles() { return false; }

}  // namespace corvid::tool
