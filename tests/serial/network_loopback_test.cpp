// A port whose device names a server, through the port table, over real sockets: the
// server here is the test's own listening socket on 127.0.0.1.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "serial/loopback_peer.h"
#include "serial/port_devices.h"
#include "serial/serial_ports.h"
#include "serial/serial_test_support.h"

namespace corvid::serial {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int kPort = 9;
constexpr const char* kSettings = "baud=9600 parity=E data=8 stop=1";

class NetworkPortTest : public test_support::SerialTest {
  protected:
    ~NetworkPortTest() override {
        ports_.CommClose(kPort);
        SetPortDevice(kPort, "");
    }

    // Opens the port on the peer's address and takes the connection at the peer's end.
    void OpenRaw() {
        SetPortDevice(kPort, peer_.Url());
        ASSERT_EQ(ports_.CommOpen(kPort, "COM9", kSettings), 0)
            << ports_.LastCommError().description;
        ASSERT_TRUE(peer_.Accept(milliseconds(2000)));
    }
    std::string HostReceives(std::size_t expected) {
        std::string got;
        for (int i = 0; i < 100 && got.size() < expected; ++i) {
            if (!ports_.CommWaitReadable(kPort, 20)) continue;
            std::string chunk;
            EXPECT_GE(ports_.CommRead(kPort, chunk, 4096), 0);
            got += chunk;
        }
        return got;
    }

    LoopbackPeer peer_;
};

std::string AllByteValues() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return bytes;
}

TEST_F(NetworkPortTest, ABareStreamCarriesEveryByteValueUnchanged) {
    OpenRaw();
    const std::string bytes = AllByteValues();
    EXPECT_EQ(ports_.CommWrite(kPort, bytes), 256);
    EXPECT_EQ(peer_.Receive(256, milliseconds(2000)), bytes);
    peer_.Send(bytes);
    EXPECT_EQ(HostReceives(256), bytes);
    bool carrier = false;
    EXPECT_EQ(ports_.CommReadCD(kPort, 0x80, carrier), 0);
    EXPECT_TRUE(carrier);
}

TEST_F(NetworkPortTest, TheComPortProtocolOpensOnceTheServerAgrees) {
    SetPortDevice(kPort, peer_.Url("RFC2217"));
    std::string greeting;
    std::string settings;
    std::thread server([&] {
        if (!peer_.Accept(milliseconds(2000))) return;
        greeting = peer_.Receive(15, milliseconds(2000));
        peer_.Send("\xFF\xFD\x2C");  // DO COM-PORT-OPTION
        settings = peer_.Receive(38, milliseconds(2000));
        peer_.Send(
            "A\xFF\xFF"
            "B");
    });
    const std::int32_t opened = ports_.CommOpen(kPort, "COM9", kSettings);
    server.join();
    ASSERT_EQ(opened, 0) << ports_.LastCommError().description;
    EXPECT_EQ(greeting.substr(0, 3), "\xFF\xFB\x2C");  // WILL COM-PORT-OPTION
    // Purge, speed, size, parity, then stop bits last: SET-STOPSIZE 1.
    ASSERT_EQ(settings.size(), 38u);
    EXPECT_EQ(settings.substr(31), "\xFF\xFA\x2C\x04\x01\xFF\xF0");
    EXPECT_EQ(HostReceives(3),
              "A\xFF"
              "B");
    EXPECT_EQ(ports_.CommWrite(kPort, "\xFF"), 1);
    EXPECT_EQ(peer_.Receive(2, milliseconds(2000)), "\xFF\xFF");
}

TEST_F(NetworkPortTest, NoServerFailsTheOpenAtCreateFileWithTheSystemText) {
    peer_.StopListening();
    SetPortDevice(kPort, peer_.Url());
    EXPECT_EQ(ports_.CommOpen(kPort, "COM9", kSettings), ConnectionRefusedNumber());
    EXPECT_EQ(ports_.LastCommError().source, "CommOpen (CreateFile)");
    const std::string text = ports_.LastCommError().description;
    EXPECT_FALSE(text.empty());
    EXPECT_EQ(text.find("System error"), std::string::npos) << text;

    SetPortDevice(kPort, "tcp://corvid-printer.invalid:9100");
    EXPECT_NE(ports_.CommOpen(kPort, "COM9", kSettings), 0);
    EXPECT_EQ(ports_.LastCommError().source, "CommOpen (CreateFile)");
    EXPECT_FALSE(ports_.LastCommError().description.empty());

    for (const char* malformed : {"tcp://127.0.0.1", "rfc2217://:4000", "tcp://host:0"}) {
        SetPortDevice(kPort, malformed);
        EXPECT_NE(ports_.CommOpen(kPort, "COM9", kSettings), 0) << malformed;
        EXPECT_EQ(ports_.LastCommError().source, "CommOpen (CreateFile)") << malformed;
    }
}

TEST_F(NetworkPortTest, AServerThatHangsUpFailsReadsAndWritesWithoutHangingOrSpinning) {
    OpenRaw();
    peer_.Send("last");
    peer_.Hangup();
    EXPECT_EQ(HostReceives(4), "last");

    const double cpu_before = ThreadCpuSeconds();
    const auto start = steady_clock::now();
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(ports_.CommWaitReadable(kPort, 100));
    EXPECT_GE(steady_clock::now() - start, milliseconds(295));
    EXPECT_LT(steady_clock::now() - start, milliseconds(1000));
    EXPECT_LT(ThreadCpuSeconds() - cpu_before, 0.015);

    std::string data;
    EXPECT_EQ(ports_.CommRead(kPort, data, 4096), -1);
    EXPECT_EQ(ports_.LastCommError().source, "CommRead (ReadFile)");
    EXPECT_EQ(ports_.CommWrite(kPort, "\x05"), -1);
    EXPECT_EQ(ports_.LastCommError().source, "CommWrite (WriteFile)");
    std::string text;
    EXPECT_NE(ports_.CommGetError(text), 0);
    bool carrier = true;
    EXPECT_EQ(ports_.CommReadCD(kPort, 0x80, carrier), 0);
    EXPECT_FALSE(carrier);
    EXPECT_EQ(ports_.CommClose(kPort), 0);
}

TEST_F(NetworkPortTest, WaitSleepsThroughSilenceAndWakesWithTheFirstByte) {
    OpenRaw();
    const double cpu_before = ThreadCpuSeconds();
    const auto start = steady_clock::now();
    EXPECT_FALSE(ports_.CommWaitReadable(kPort, 500));
    const auto elapsed = steady_clock::now() - start;
    EXPECT_GE(elapsed, milliseconds(495));
    EXPECT_LT(elapsed, milliseconds(800));
    EXPECT_LT(ThreadCpuSeconds() - cpu_before, 0.015);

    steady_clock::time_point sent;
    std::thread printer([&] {
        std::this_thread::sleep_for(milliseconds(100));
        sent = steady_clock::now();
        peer_.Send("\x06");
    });
    EXPECT_TRUE(ports_.CommWaitReadable(kPort, 2000));
    const auto woke = steady_clock::now();
    printer.join();
    EXPECT_LT(woke - sent, milliseconds(20));
    std::string data;
    EXPECT_EQ(ports_.CommRead(kPort, data, 4096), 1);
    EXPECT_EQ(data, "\x06");
}

}  // namespace
}  // namespace corvid::serial
