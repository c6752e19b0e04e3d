// What stands for serial port N: an override set by the process (tools and tests point a
// port at a pseudo-terminal or a server), else the setting "Device" & N in section
// "Config\ModComm" of application "ORV", else "/dev/ttyS" & (N - 1).
// A serial device server ("tcp://host:port", "rfc2217://host:port") is used on every
// platform; any other value names a device file on POSIX and is ignored on Windows, which
// opens "\\.\COMn".
#pragma once

#include <memory>
#include <string>

#include "serial/serial_device.h"

namespace corvid::serial {

// Points port `port` at `path` for this process; an empty path removes the override.
void SetPortDevice(int port, const std::string& path);

// The device for port `port`, resolved as above.
std::string PortDevicePath(int port);

// Opens what stands for port `port` (named `name`, "COM" & port): the server its device
// names, else this platform's serial device. On failure returns null and fills `failure`.
std::unique_ptr<SerialDevice> OpenPortDevice(int port, const std::string& name,
                                             SystemFailure& failure);

}  // namespace corvid::serial
