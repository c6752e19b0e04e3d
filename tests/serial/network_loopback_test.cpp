// A port whose device names a server, through the port table, over real sockets: the
// server here is the test's own listening socket on 127.0.0.1.
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "serial/loopback_peer.h"
#include "serial/port_devices.h"
#include "serial/serial_test_support.h"

namespace corvid::serial {
namespace {

using std::chrono::milliseconds;

constexpr int kPort = 9;

class NetworkPortTest : public test_support::SerialTest {
  protected:
    ~NetworkPortTest() override {
        ports_.CommClose(kPort);
        SetPortDevice(kPort, "");
    }
    LoopbackPeer peer_;
};

TEST_F(NetworkPortTest, NoServerFailsTheOpenAtCreateFileWithTheSystemText) {
    peer_.StopListening();
    struct Case {
        std::string device;
        std::int32_t number;  // 0: any failure
    };
    for (const Case& c : {Case{peer_.Url(), ConnectionRefusedNumber()},
                          Case{"tcp://corvid-printer.invalid:9100", 0}, Case{"tcp://127.0.0.1", 0},
                          Case{"rfc2217://:4000", 0}, Case{"tcp://host:0", 0}}) {
        SCOPED_TRACE(c.device);
        SetPortDevice(kPort, c.device);
        const std::int32_t number = ports_.CommOpen(kPort, "COM9", kLineSettings);
        EXPECT_NE(number, 0);
        if (c.number != 0) {
            EXPECT_EQ(number, c.number);
        }
        EXPECT_EQ(ports_.LastCommError().source, "CommOpen (CreateFile)");
        const std::string text = ports_.LastCommError().description;
        EXPECT_FALSE(text.empty());
        EXPECT_EQ(text.find("System error"), std::string::npos) << text;
    }
}

TEST_F(NetworkPortTest, AServerThatHangsUpFailsReadsAndWritesAfterWhatItSent) {
    SetPortDevice(kPort, peer_.Url());
    ASSERT_EQ(ports_.CommOpen(kPort, "COM9", kLineSettings), 0);
    ASSERT_TRUE(peer_.Accept(milliseconds(2000)));
    bool carrier = false;
    EXPECT_EQ(ports_.CommReadCD(kPort, 0x80, carrier), 0);
    EXPECT_TRUE(carrier);
    peer_.Send("last");
    peer_.HangUp();
    std::string data;
    ASSERT_TRUE(ports_.CommWaitReadable(kPort, 2000));
    EXPECT_EQ(ports_.CommRead(kPort, data, 4096), 4);
    EXPECT_EQ(data, "last");

    EXPECT_FALSE(ports_.CommWaitReadable(kPort, 100));
    EXPECT_EQ(ports_.CommRead(kPort, data, 4096), -1);
    EXPECT_EQ(ports_.LastCommError().source, "CommRead (ReadFile)");
    EXPECT_EQ(ports_.CommWrite(kPort, "\x05"), -1);
    EXPECT_EQ(ports_.LastCommError().source, "CommWrite (WriteFile)");
    std::string text;
    EXPECT_NE(ports_.CommGetError(text), 0);
    EXPECT_EQ(ports_.CommReadCD(kPort, 0x80, carrier), 0);
    EXPECT_FALSE(carrier);
    EXPECT_EQ(ports_.CommClose(kPort), 0);
}

}  // namespace
}  // namespace corvid::serial
