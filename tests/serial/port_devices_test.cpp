#include "port/port_devices.h"

#include <gtest/gtest.h>

#include "port/memory_settings_source.h"

namespace corvid::port {
namespace {

TEST(PortDevicePath, OverrideThenSettingThenTtySOfThePortMinusOne) {
    ScopedSettingsSource settings;
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
}  // namespace corvid::port
