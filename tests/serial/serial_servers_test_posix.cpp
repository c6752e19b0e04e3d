// A port on ser2net (the com-port protocol) in front of a pseudo-terminal whose master end
// the test holds as the printer: the bytes and the line settings must reach it.
#include <gtest/gtest.h>
#include <termios.h>

#include <chrono>
#include <thread>

#include "serial/port_devices.h"
#include "serial/pty_printer_posix.h"
#include "serial/serial_servers_posix.h"
#include "serial/serial_test_support.h"

namespace corvid::serial {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int kPort = 11;

using Ser2netTest = test_support::SerialTest;

TEST_F(Ser2netTest, EveryByteValueAndTheLineSettingsReachTheServersPort) {
    PtyPrinter printer;
    test_support::SerialServer server(printer.SlavePath());
    ASSERT_EQ(server.error(), "");
    SetPortDevice(kPort, server.Url());
    ASSERT_EQ(ports_.CommOpen(kPort, "COM11", kLineSettings), 0)
        << ports_.LastCommError().description << "\n"
        << server.Log();

    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    EXPECT_EQ(ports_.CommWrite(kPort, bytes), 256);
    EXPECT_EQ(printer.Receive(256, milliseconds(3000)), bytes);
    printer.Send(bytes);
    std::string got;
    for (int i = 0; i < 150 && got.size() < 256; ++i) {
        std::string chunk;
        if (ports_.CommWaitReadable(kPort, 20)) ports_.CommRead(kPort, chunk, 4096);
        got += chunk;
    }
    EXPECT_EQ(got, bytes);

    EXPECT_EQ(ports_.CommSet(kPort, "baud=19200 parity=N data=8 stop=2"), 0);
    // The terminal gets the speed and two stop bits within a while.
    bool changed = false;
    for (int i = 0; i < 150 && !changed; ++i) {
        termios tio{};
        changed = tcgetattr(printer.fd(), &tio) == 0 && cfgetospeed(&tio) == B19200 &&
                  (tio.c_cflag & CSTOPB) != 0;
        if (!changed) std::this_thread::sleep_for(milliseconds(20));
    }
    EXPECT_TRUE(changed);
    for (std::int16_t line : {1, 2, 3}) {
        EXPECT_EQ(ports_.CommSetLine(kPort, line, 1), 0) << line;
        EXPECT_EQ(ports_.CommSetLine(kPort, line, 0), 0) << line;
    }
    EXPECT_EQ(ports_.CommFlush(kPort), 0);
    EXPECT_EQ(ports_.CommWrite(kPort, "\x05"), 1);
    EXPECT_EQ(printer.Receive(1, milliseconds(3000)), "\x05");
    ports_.CommClose(kPort);
    SetPortDevice(kPort, "");
}

}  // namespace
}  // namespace corvid::serial
