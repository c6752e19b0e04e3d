// A port on ser2net (the com-port protocol) in front of a pseudo-terminal whose master end
// the test holds as the printer: the bytes and the line settings must reach it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <thread>

#include "serial/port_devices.h"
#include "serial/serial_ports.h"
#include "serial/serial_servers_posix.h"
#include "serial/serial_test_support.h"

namespace corvid::serial {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int kPort = 11;

class Ser2netTest : public test_support::SerialTest {
  protected:
    Ser2netTest() {
        master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        termios raw{};
        if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0 ||
            tcgetattr(master_, &raw) != 0) {
            ADD_FAILURE() << "no pseudo-terminal: " << std::strerror(errno);
            return;
        }
        cfmakeraw(&raw);
        tcsetattr(master_, TCSANOW, &raw);
    }
    ~Ser2netTest() override {
        ports_.CommClose(kPort);
        SetPortDevice(kPort, "");
        if (master_ >= 0) close(master_);
    }

    std::string PrinterReceives(std::size_t expected) {
        std::string got;
        const auto deadline = steady_clock::now() + milliseconds(3000);
        while (got.size() < expected && steady_clock::now() < deadline) {
            pollfd p{master_, POLLIN, 0};
            if (poll(&p, 1, 50) <= 0) continue;
            char buffer[512];
            const ssize_t n = read(master_, buffer, sizeof buffer);
            if (n > 0) got.append(buffer, static_cast<std::size_t>(n));
        }
        return got;
    }
    std::string HostReceives(std::size_t expected) {
        std::string got;
        for (int i = 0; i < 150 && got.size() < expected; ++i) {
            if (!ports_.CommWaitReadable(kPort, 20)) continue;
            std::string chunk;
            EXPECT_GE(ports_.CommRead(kPort, chunk, 4096), 0);
            got += chunk;
        }
        return got;
    }
    // Whether the terminal gets `speed` and two stop bits within a while.
    bool TerminalBecomes(speed_t speed) {
        const auto deadline = steady_clock::now() + milliseconds(3000);
        while (steady_clock::now() < deadline) {
            termios tio{};
            if (tcgetattr(master_, &tio) == 0 && cfgetospeed(&tio) == speed &&
                (tio.c_cflag & CSTOPB) != 0) {
                return true;
            }
            std::this_thread::sleep_for(milliseconds(20));
        }
        return false;
    }

    int master_ = -1;
};

TEST_F(Ser2netTest, EveryByteValueAndTheLineSettingsReachTheServersPort) {
    test_support::SerialServer server(test_support::SerialServer::Kind::kSer2net, ptsname(master_));
    ASSERT_EQ(server.error(), "");
    SetPortDevice(kPort, server.Url());
    ASSERT_EQ(ports_.CommOpen(kPort, "COM11", "baud=9600 parity=E data=8 stop=1"), 0)
        << ports_.LastCommError().description << "\n"
        << server.Log();

    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    EXPECT_EQ(ports_.CommWrite(kPort, bytes), 256);
    EXPECT_EQ(PrinterReceives(256), bytes);
    ASSERT_EQ(write(master_, bytes.data(), bytes.size()), 256);
    EXPECT_EQ(HostReceives(256), bytes);

    EXPECT_EQ(ports_.CommSet(kPort, "baud=19200 parity=N data=8 stop=2"), 0);
    EXPECT_TRUE(TerminalBecomes(B19200));
    for (std::int16_t line : {1, 2, 3}) {
        EXPECT_EQ(ports_.CommSetLine(kPort, line, 1), 0) << line;
        EXPECT_EQ(ports_.CommSetLine(kPort, line, 0), 0) << line;
    }
    EXPECT_EQ(ports_.CommFlush(kPort), 0);
    EXPECT_EQ(ports_.CommWrite(kPort, "\x05"), 1);
    EXPECT_EQ(PrinterReceives(1), "\x05");
    ports_.CommClose(kPort);
}

}  // namespace
}  // namespace corvid::serial
