// The port table on a pseudo-terminal standing in for the printer's port: what only an
// open port can show.
#include <gtest/gtest.h>
#include <termios.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/message_pump.h"
#include "serial/port_devices.h"
#include "serial/pty_printer_posix.h"
#include "serial/serial_test_support.h"

namespace corvid::serial {
namespace {

using std::chrono::milliseconds;

constexpr int kPort = 5;

class PtyTest : public test_support::SerialTest {
  protected:
    PtyTest() { SetPortDevice(kPort, printer_.SlavePath()); }
    ~PtyTest() override {
        ports_.CommClose(kPort);
        SetPortDevice(kPort, "");
    }

    PtyPrinter printer_;
};

TEST_F(PtyTest, AnOpenPortIsInUseUntilClosed) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kLineSettings), 0);
    EXPECT_EQ(ports_.CommOpen(kPort, "COM5", kLineSettings), -1);
    std::string text;
    EXPECT_EQ(ports_.CommGetError(text), -1);
    EXPECT_EQ(text, "Error (-1): CommOpen - Port in use.");
    // The first open is untouched, and a close makes the port free again.
    EXPECT_EQ(ports_.CommWrite(kPort, "w"), 1);
    EXPECT_EQ(ports_.CommClose(kPort), 0);
    EXPECT_EQ(ports_.CommOpen(kPort, "COM5", kLineSettings), 0) << ports_.LastCommError().source;
}

TEST_F(PtyTest, LineSettingsAndLinesOnAPseudoTerminal) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kLineSettings), 0);
    // A pseudo-terminal keeps eight bits without parity, but shows the odd-parity flag and
    // the stop bits the port was given.
    struct Case {
        const char* settings;
        tcflag_t set, clear;
    };
    for (const Case& c :
         {Case{"baud=19200 parity=O", PARODD, 0}, Case{"parity=E stop=2", CSTOPB, PARODD},
          Case{"parity=N data=7 stop=1", 0, PARODD | CSTOPB}}) {
        EXPECT_EQ(ports_.CommSet(kPort, c.settings), 0) << c.settings;
        termios tio{};
        ASSERT_EQ(tcgetattr(printer_.fd(), &tio), 0);
        EXPECT_EQ(tio.c_cflag & (c.set | c.clear), c.set) << c.settings;
    }
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

TEST_F(PtyTest, HostClosingThePortDuringTheYieldFailsTheReadCleanly) {
    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kLineSettings), 0);
    printer_.Send("ACK");
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
    // A failed open starts the dump, if DEBUG is on.
    SetPortDevice(kPort + 1, "/nonexistent/ttyCorvid");
    for (const char* debug : {"0", "1"}) {
        ConfigureDump(debug, path.string());
        EXPECT_NE(ports_.CommOpen(kPort + 1, "COM6", kLineSettings), 0);
        EXPECT_EQ(std::filesystem::exists(path), debug[0] == '1');
    }
    SetPortDevice(kPort + 1, "");
    clock_->SetNow(automation::Date{45000.0 + (13 * 3600 + 5 * 60 + 9) / 86400.0});

    ASSERT_EQ(ports_.CommOpen(kPort, "COM5", kLineSettings), 0);
    // Controls show as dots in the text column; DEL and e-acute (Windows-1252) as they are.
    const std::string command = "\x02PasarItem 01234\x7F\xE9\x03";
    ASSERT_EQ(ports_.CommWrite(kPort, command), static_cast<std::int32_t>(command.size()));
    printer_.Send("\x06");
    ASSERT_TRUE(ports_.CommWaitReadable(kPort, 1000));
    std::string reply;
    EXPECT_EQ(ports_.CommRead(kPort, reply, 4096), 1);
    ports_.CommClose(kPort);
    ports_.CommWrite(kPort, "after close");  // not open: fails, and the dump is closed anyway

    std::stringstream contents;
    contents << std::ifstream(path, std::ios::binary).rdbuf();
    EXPECT_EQ(contents.str(),
              "Send 15-03-2023 13:05:09\r\n"
              "02 50 61 73 61 72 49 74 65 6D 20 30 31 32 33 34 .PasarItem 01234\r\n"
              "7F E9 03                                        \x7F\xE9.\r\n"
              "Read 15-03-2023 13:05:09\r\n"
              "06                                              .\r\n");
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace corvid::serial
