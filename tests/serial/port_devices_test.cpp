#include "serial/port_devices.h"

#include <gtest/gtest.h>

#include "serial/network_address.h"
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

TEST(NetworkAddress, AServerIsATcpOrRfc2217UrlWithAPort) {
    auto raw = ParseNetworkAddress("tcp://192.168.1.50:4001");
    ASSERT_TRUE(raw);
    EXPECT_EQ(raw->protocol, NetworkAddress::Protocol::kRawTcp);
    EXPECT_EQ(raw->host, "192.168.1.50");
    EXPECT_EQ(raw->port, 4001);
    auto telnet = ParseNetworkAddress("RFC2217://caja-3.tienda.lan:65535");
    ASSERT_TRUE(telnet);
    EXPECT_EQ(telnet->protocol, NetworkAddress::Protocol::kTelnetComPort);
    EXPECT_EQ(telnet->host, "caja-3.tienda.lan");
    EXPECT_EQ(telnet->port, 65535);
    auto v6 = ParseNetworkAddress("tcp://[fe80::1]:2217");
    ASSERT_TRUE(v6);
    EXPECT_EQ(v6->host, "fe80::1");

    for (const char* device : {"/dev/ttyUSB0", "COM3", "telnet://host:23", "tcp:/host:1"}) {
        EXPECT_FALSE(IsNetworkDevice(device)) << device;
    }
    // Servers all the same, so the open fails rather than looking for a device file.
    for (const char* device :
         {"tcp://host", "tcp://:4001", "tcp://host:0", "tcp://host:65536", "tcp://host:40a1",
          "tcp://host:4001/", "tcp://fe80::1:4001", "tcp://[]:4001", "tcp://[::1]4001"}) {
        EXPECT_TRUE(IsNetworkDevice(device)) << device;
        EXPECT_FALSE(ParseNetworkAddress(device)) << device;
    }
}

}  // namespace
}  // namespace corvid::serial
