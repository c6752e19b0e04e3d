// The serial layer on every kind of line it drives: the same behaviour whether the printer
// sits on a pseudo-terminal or a cable under Wine.
#ifdef _WIN32
#include <winsock2.h>
#else
#include <cerrno>
#endif

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "serial/port_devices.h"
#include "serial/printer_end.h"
#include "serial/serial_test_support.h"

namespace corvid::serial {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Waiting in a loop of short sleeps costs Wine about 3 % of the time; 15 ms in a second.
constexpr double kIdleCpuSeconds = 0.015;

class SerialLineTest : public test_support::SerialTest,
                       public ::testing::WithParamInterface<LineKind> {
  protected:
    ~SerialLineTest() override {
        if (!printer_) return;
        ports_.CommClose(port());
        SetPortDevice(port(), "");
    }
    void Plug(bool willHangUp = false) {
        printer_ = GetParam().open(ports_, willHangUp);
        ASSERT_NE(printer_, nullptr) << ports_.LastCommError().description;
    }
    void SetUp() override { Plug(); }
    int port() const { return printer_->hostPort; }

    // Reads from the port until `expected` bytes came, waiting in short slices.
    std::string HostReceives(std::size_t expected) {
        std::string got;
        for (int i = 0; i < 100 && got.size() < expected; ++i) {
            if (!ports_.CommWaitReadable(port(), 20)) continue;
            std::string chunk;
            EXPECT_GE(ports_.CommRead(port(), chunk, 4096), 0);
            got += chunk;
        }
        return got;
    }
    // The printer sends `bytes` after `pause`, on a thread of its own; returns when sent.
    std::thread SendLater(std::string bytes, milliseconds pause, steady_clock::time_point* sent) {
        return std::thread([this, bytes, pause, sent] {
            std::this_thread::sleep_for(pause);
            if (sent != nullptr) *sent = steady_clock::now();
            printer_->Send(bytes);
        });
    }

    std::unique_ptr<PrinterEnd> printer_;
};

TEST_P(SerialLineTest, EveryByteValueCrossesUnchangedBothWays) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    EXPECT_EQ(ports_.CommWrite(port(), bytes), 256);
    EXPECT_EQ(printer_->Receive(256, milliseconds(3000)), bytes);
    printer_->Send(bytes);
    EXPECT_EQ(HostReceives(256), bytes);
}

TEST_P(SerialLineTest, AReadAsksOnlyForWhatIsWaiting) {
    std::string data = "stale";
    auto start = steady_clock::now();
    EXPECT_EQ(ports_.CommRead(port(), data, 4096), 0);
    EXPECT_LT(steady_clock::now() - start, milliseconds(50));
    EXPECT_EQ(data, "");

    // The byte a wait takes off the line is read first and once; a read of fewer bytes
    // than are waiting (the lone check byte) leaves the rest, in order, for the next one.
    std::thread printer = SendLater("A", milliseconds(100), nullptr);
    ASSERT_TRUE(ports_.CommWaitReadable(port(), 2000));
    printer.join();
    printer_->Send("BC");
    std::this_thread::sleep_for(milliseconds(100));
    start = steady_clock::now();
    for (const char* expected : {"A", "B"}) {
        EXPECT_EQ(ports_.CommRead(port(), data, 1), 1);
        EXPECT_EQ(data, expected);
    }
    EXPECT_EQ(ports_.CommRead(port(), data, 4096), 1);
    EXPECT_EQ(data, "C");
    EXPECT_EQ(ports_.CommRead(port(), data, 4096), 0);
    // None of them sat out the port's one-second read time-out.
    EXPECT_LT(steady_clock::now() - start, milliseconds(500));
}

TEST_P(SerialLineTest, FlushDropsWhatIsQueuedAndTheByteAWaitTook) {
    std::thread printer = SendLater("\x15", milliseconds(50), nullptr);
    ASSERT_TRUE(ports_.CommWaitReadable(port(), 2000));
    printer.join();
    printer_->Send("stale reply");
    std::this_thread::sleep_for(milliseconds(100));
    EXPECT_EQ(ports_.CommFlush(port()), 0);
    std::string data;
    EXPECT_EQ(ports_.CommRead(port(), data, 4096), 0);
    EXPECT_FALSE(ports_.CommWaitReadable(port(), 50));
}

TEST_P(SerialLineTest, WaitSleepsThroughSilenceAndWakesWithTheFirstByte) {
    const double cpu_before = ThreadCpuSeconds();
    const auto start = steady_clock::now();
    EXPECT_FALSE(ports_.CommWaitReadable(port(), 1000));
    const auto elapsed = steady_clock::now() - start;
    EXPECT_GE(elapsed, milliseconds(990));
    EXPECT_LT(elapsed, milliseconds(1500));
    EXPECT_LT(ThreadCpuSeconds() - cpu_before, kIdleCpuSeconds);

    steady_clock::time_point sent;
    std::thread printer = SendLater("\x06", milliseconds(100), &sent);
    EXPECT_TRUE(ports_.CommWaitReadable(port(), 2000));
    const auto woke = steady_clock::now();
    printer.join();
    EXPECT_LT(woke - sent, milliseconds(20));
    std::string data;
    EXPECT_EQ(ports_.CommRead(port(), data, 4096), 1);
    EXPECT_EQ(data, "\x06");
}

TEST_P(SerialLineTest, WaitAfterThePrinterHangsUpSitsOutTheTime) {
    ports_.CommClose(port());
    printer_.reset();
    Plug(true);
    printer_->HangUp();
    const double cpu_before = ThreadCpuSeconds();
    const auto start = steady_clock::now();
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(ports_.CommWaitReadable(port(), 100));
    EXPECT_GE(steady_clock::now() - start, milliseconds(290));
    EXPECT_LT(steady_clock::now() - start, milliseconds(1000));
    EXPECT_LT(ThreadCpuSeconds() - cpu_before, kIdleCpuSeconds);
}

INSTANTIATE_TEST_SUITE_P(Lines, SerialLineTest, ::testing::ValuesIn(PlatformLines()),
                         [](const auto& info) { return info.param.name; });

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(SerialLineTest);  // Windows, not Wine: no cable

using NetworkPortTest = test_support::SerialTest;

// Nobody listens on port 1 of this machine.
TEST_F(NetworkPortTest, NoServerFailsTheOpenAtCreateFileWithTheSystemText) {
#ifdef _WIN32
    const std::int32_t refused = WSAECONNREFUSED;
#else
    const std::int32_t refused = ECONNREFUSED;
#endif
    SetPortDevice(9, "tcp://127.0.0.1:1");
    EXPECT_EQ(ports_.CommOpen(9, "COM9", kLineSettings), refused);
    SetPortDevice(9, "");
    EXPECT_EQ(ports_.LastCommError().source, "CommOpen (CreateFile)");
    const std::string text = ports_.LastCommError().description;
    EXPECT_FALSE(text.empty());
    EXPECT_EQ(text.find("System error"), std::string::npos) << text;
}

}  // namespace
}  // namespace corvid::serial
