#include "serial/port_devices.h"

#include <gtest/gtest.h>

#include "support/memory_settings_source.h"

namespace corvid::serial {
namespace {

TEST(PortDevicePath, OverrideThenSettingThenTtySOfThePortMinusOne) {
    host::ScopedSettingsSource settings;
    EXPECT_EQ(PortDevicePath(1), "/dev/ttyS0");
    EXPECT_EQ(PortDevicePath(12), "/dev/ttyS11");

    settings->SetUserValue("ORV", "Config\\ModComm", "Device12", "/dev/ttyUSB0");
    EXPECT_EQ(PortDevicePath(12), "/dev/ttyUSB0");
    EXPECT_EQ(PortDevicePath(1), "/dev/ttyS0");

    SetPortDevice(12, "/dev/pts/7");
    EXPECT_EQ(PortDevicePath(12), "/dev/pts/7");
    SetPortDevice(12, "");
    EXPECT_EQ(PortDevicePath(12), "/dev/ttyUSB0");
}

}  // namespace
}  // namespace corvid::serial
