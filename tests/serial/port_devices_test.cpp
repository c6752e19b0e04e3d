#include "serial/port_devices.h"

#include <gtest/gtest.h>

#include "serial/network_address.h"
#include "serial/serial_settings.h"
#include "support/memory_settings_source.h"

namespace corvid::serial {
namespace {

TEST(PortDevicePath, OverrideThenSettingThenTtySOfThePortMinusOne) {
    host::ScopedSettingsSource settings;
    EXPECT_EQ(PortDevicePath(12), "/dev/ttyS11");

    settings->SetUserValue("ORV", "Config\\ModComm", "Device12", "/dev/ttyUSB0");
    EXPECT_EQ(PortDevicePath(12), "/dev/ttyUSB0");
    EXPECT_EQ(PortDevicePath(1), "/dev/ttyS0");

    SetPortDevice(12, "/dev/pts/7");
    EXPECT_EQ(PortDevicePath(12), "/dev/pts/7");
    SetPortDevice(12, "");
    EXPECT_EQ(PortDevicePath(12), "/dev/ttyUSB0");
}

TEST(NetworkAddress, AServerIsATcpOrRfc2217UrlWithAPort) {
    using Protocol = NetworkAddress::Protocol;
    struct Case {
        const char* device;
        Protocol protocol;
        const char* host;
        int port;
    };
    for (const Case& c : {Case{"RFC2217://caja-3.tienda.lan:65535", Protocol::kTelnetComPort,
                               "caja-3.tienda.lan", 65535},
                          Case{"tcp://[fe80::1]:2217", Protocol::kRawTcp, "fe80::1", 2217}}) {
        const auto address = ParseNetworkAddress(c.device);
        ASSERT_TRUE(address) << c.device;
        EXPECT_EQ(address->protocol, c.protocol);
        EXPECT_EQ(address->host, c.host);
        EXPECT_EQ(address->port, c.port);
    }
    for (const char* device : {"/dev/ttyUSB0", "telnet://host:23", "tcp:/host:1"}) {
        EXPECT_FALSE(IsNetworkDevice(device)) << device;
    }
    // Servers all the same, so the open fails rather than looking for a device file.
    for (const char* device : {"tcp://host", "tcp://:4001", "tcp://host:0", "tcp://host:65536",
                               "tcp://host:40a1", "tcp://fe80::1:4001", "tcp://[::1]4001"}) {
        EXPECT_TRUE(IsNetworkDevice(device)) << device;
        EXPECT_FALSE(ParseNetworkAddress(device)) << device;
    }
}

TEST(ParseLineSettings, RefusesWhatTheDeviceCannotTake) {
    for (const char* text : {"", "baud=", "baud=0", "parity=X", "parity=EE", "data=9", "data=4",
                             "stop=3", "speed=9600", "baud 9600", "baud=9600 xon=maybe"}) {
        EXPECT_FALSE(ParseLineSettings(text).has_value()) << text;
    }
}

}  // namespace
}  // namespace corvid::serial
