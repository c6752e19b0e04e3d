// How this platform reaches a serial port, for the tool's messages and its --port check.
#pragma once

#include <cstdint>
#include <string>

namespace corvid::tool {

// The device the library opens for COM port `port`.
std::string DeviceOfPort(std::int16_t port);
// Whether --port may name a device file (POSIX) or only COM ports (Windows).
bool CanOpenDeviceFiles();

}  // namespace corvid::tool
