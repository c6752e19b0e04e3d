// The serial layer end to end on a pseudo-terminal standing in for the printer's port.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "host/message_pump.h"
#include "serial/loopback_peer.h"
#include "serial/port_devices.h"
#include "serial/serial_ports.h"
#include "serial/serial_test_support.h"

namespace corvid::serial {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int kPort = 5;
constexpr const char* kSettings = "baud=9600 parity=E data=8 stop=1";

// The printer's end of the line: the pty master.
class PtyTest : public test_support::SerialTest {
  protected:
    PtyTest() {
        master_ = posix_openpt(O_RDWR | O_NOCTTY);
        if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) {
            ADD_FAILURE() << "no pseudo-terminal: " << std::strerror(errno);
            return;
        }
        SetPortDevice(kPort, ptsname(master_));
    }
    ~PtyTest() override {
        ports_.CommClose(kPort);
        SetPortDevice(kPort, "");
        if (master_ >= 0) close(master_);
    }

    void PrinterSends(const std::string& bytes) {
        ASSERT_EQ(write(master_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // What arrived at the printer within `wait`.
    std::string PrinterReceives(std::size_t expected, milliseconds wait = milliseconds(1000)) {
        std::string got;
        const auto deadline = steady_clock::now() + wait;
        while (got.size() < expected && steady_clock::now() < deadline) {
            pollfd p{master_, POLLIN, 0};
            if (poll(&p, 1, 50) <= 0) continue;
            char buffer[512];
            const ssize_t n = read(master_, buffer, sizeof buffer);
            if (n <= 0) break;
            got.append(buffer, static_cast<std::size_t>(n));
        }
        return got;
    }
    // Reads from the port until `expected` bytes came, waiting in short slices.
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

    int master_ = -1;
};

std::string AllByteValues() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return bytes;
}

TEST_F(PtyTest, EveryByteValueCrossesUnchangedBothWays) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
    const std::string bytes = AllByteValues();
    EXPECT_EQ(ports_.CommWrite(kPort, bytes), 256);
    EXPECT_EQ(PrinterReceives(256), bytes);

    PrinterSends(bytes);
    EXPECT_EQ(HostReceives(256), bytes);
}

TEST_F(PtyTest, ReadWithNothingQueuedReturnsZeroAtOnce) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
    std::string data = "stale";
    const auto start = steady_clock::now();
    EXPECT_EQ(ports_.CommRead(kPort, data, 4096), 0);
    EXPECT_LT(steady_clock::now() - start, milliseconds(50));
    EXPECT_EQ(data, "");
}

TEST_F(PtyTest, SecondOpenOfAnOpenPortIsPortInUse) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
    EXPECT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), -1);
    std::string text;
    EXPECT_EQ(ports_.CommGetError(text), -1);
    EXPECT_EQ(text, "Error (-1): CommOpen - Port in use.");
    // The first open is untouched, and a close makes the port free again.
    EXPECT_EQ(ports_.CommWrite(kPort, "w"), 1);
    EXPECT_EQ(ports_.CommClose(kPort), 0);
    EXPECT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0) << ports_.LastCommError().source;
}

TEST_F(PtyTest, OpenWithBadSettingsFailsButKeepsThePortUntilClosed) {
    EXPECT_NE(ports_.CommOpen(kPort, "COM5", "baud=fast"), 0);
    EXPECT_EQ(ports_.LastCommError().source, "CommOpen (BuildCommDCB)");
    EXPECT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), -1);
    EXPECT_EQ(ports_.CommClose(kPort), 0);
    EXPECT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
}

TEST_F(PtyTest, LineSettingsAndLinesOnAPseudoTerminal) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
    EXPECT_EQ(ports_.CommSet(kPort, "baud=19200 parity=N data=8 stop=2"), 0);
    EXPECT_NE(ports_.CommSet(kPort, "parity=Q"), 0);
    EXPECT_EQ(ports_.LastCommError().source, "CommSet (BuildCommDCB)");
    // A pseudo-terminal has no modem lines and no break; that must not stop the session.
    for (std::int16_t line : {1, 2, 3}) {
        EXPECT_EQ(ports_.CommSetLine(kPort, line, 1), 0) << line;
        EXPECT_EQ(ports_.CommSetLine(kPort, line, 0), 0) << line;
    }
    EXPECT_NE(ports_.CommSetLine(kPort, 4, 1), 0);
    EXPECT_EQ(ports_.LastCommError().source, "CommSetLine (EscapeCommFunction)");
}

TEST_F(PtyTest, FlushDropsWhatIsQueued) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
    PrinterSends("stale reply");
    ASSERT_TRUE(ports_.CommWaitReadable(kPort, 1000));
    EXPECT_EQ(ports_.CommFlush(kPort), 0);
    std::string data;
    EXPECT_EQ(ports_.CommRead(kPort, data, 4096), 0);
}

TEST_F(PtyTest, MissingDeviceFailsAtCreateFileWithTheSystemText) {
    SetPortDevice(kPort, "/nonexistent/ttyCorvid");
    EXPECT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), ENOENT);
    EXPECT_EQ(ports_.LastCommError().source, "CommOpen (CreateFile)");
    EXPECT_EQ(ports_.LastCommError().description, std::strerror(ENOENT));
}

TEST_F(PtyTest, WaitReadableSleepsThroughSilenceWithoutBurningCpu) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
    const double cpu_before = ThreadCpuSeconds();
    const auto start = steady_clock::now();
    EXPECT_FALSE(ports_.CommWaitReadable(kPort, 200));
    const auto elapsed = steady_clock::now() - start;
    EXPECT_GE(elapsed, milliseconds(195));
    EXPECT_LT(elapsed, milliseconds(400));
    EXPECT_LT(ThreadCpuSeconds() - cpu_before, 0.010);
}

TEST_F(PtyTest, WaitReadableWakesAsSoonAsBytesArrive) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
    steady_clock::time_point sent;
    std::thread printer([&] {
        std::this_thread::sleep_for(milliseconds(50));
        sent = steady_clock::now();
        PrinterSends("\x06");
    });
    EXPECT_TRUE(ports_.CommWaitReadable(kPort, 2000));
    const auto woke = steady_clock::now();
    printer.join();
    EXPECT_LT(woke - sent, milliseconds(20));
    std::string data;
    EXPECT_EQ(ports_.CommRead(kPort, data, 4096), 1);
    EXPECT_EQ(data, "\x06");
}

TEST_F(PtyTest, WaitReadableAfterThePrinterHangsUpSitsOutTheTime) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
    close(master_);
    master_ = -1;
    const double cpu_before = ThreadCpuSeconds();
    const auto start = steady_clock::now();
    EXPECT_FALSE(ports_.CommWaitReadable(kPort, 100));
    EXPECT_GE(steady_clock::now() - start, milliseconds(95));
    EXPECT_LT(ThreadCpuSeconds() - cpu_before, 0.010);
}

TEST_F(PtyTest, HostClosingThePortDuringTheYieldFailsTheReadCleanly) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
    PrinterSends("ACK");
    ASSERT_TRUE(ports_.CommWaitReadable(kPort, 1000));
    auto previous = host::SetHostYieldHook([this] { ports_.CommClose(kPort); });
    std::string data;
    EXPECT_EQ(ports_.CommRead(kPort, data, 4096), -1);
    host::SetHostYieldHook(previous);
    EXPECT_EQ(ports_.LastCommError().source, "CommRead (ClearCommError)");
}

TEST_F(PtyTest, DumpRecordsEveryByteSentAndReadUntilThePortCloses) {
    const auto path = std::filesystem::temp_directory_path() /
                      ("corvid-pty-dump-" + std::to_string(getpid()) + ".txt");
    std::filesystem::remove(path);
    ConfigureDump("1", path.string());
    SetPortDevice(kPort + 1, "/nonexistent/ttyCorvid");
    EXPECT_NE(ports_.CommOpen(kPort + 1, "COM6", kSettings), 0);  // a failed open starts the dump
    SetPortDevice(kPort + 1, "");
    clock_->SetNow(automation::Date{45000.0 + (13 * 3600 + 5 * 60 + 9) / 86400.0});

    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kSettings), 0);
    const std::string command =
        "\x02"
        "PasarItem 0123456789\x03";
    ASSERT_EQ(ports_.CommWrite(kPort, command), static_cast<std::int32_t>(command.size()));
    PrinterSends("\x06");
    EXPECT_EQ(HostReceives(1), "\x06");
    ports_.CommClose(kPort);
    ports_.CommWrite(kPort, "after close");  // not open: fails, and the dump is closed anyway

    std::ifstream file(path, std::ios::binary);
    std::stringstream contents;
    contents << file.rdbuf();
    EXPECT_EQ(contents.str(),
              "Send 15-03-2023 13:05:09\r\n"
              "02 50 61 73 61 72 49 74 65 6D 20 30 31 32 33 34 .PasarItem 01234\r\n"
              "35 36 37 38 39 03                               56789.\r\n"
              "Read 15-03-2023 13:05:09\r\n"
              "06                                              .\r\n");
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace corvid::serial
