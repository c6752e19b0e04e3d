// Which device file stands for serial port N on POSIX: an override set by the process
// (tools and tests point a port at a pseudo-terminal), else the setting "Device" & N in
// section "Config\ModComm" of application "ORV", else "/dev/ttyS" & (N - 1).
// Windows always opens "\\.\COMn" and ignores all of this.
#pragma once

#include <string>

namespace corvid::serial {

// Points port `port` at `path` for this process; an empty path removes the override.
void SetPortDevice(int port, const std::string& path);

// The device file for port `port`, resolved as above.
std::string PortDevicePath(int port);

}  // namespace corvid::serial
