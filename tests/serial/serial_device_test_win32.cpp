#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <string>
#include <thread>

#include "host/message_pump.h"
#include "serial/serial_ports.h"
#include "serial/serial_test_support.h"

namespace corvid::serial {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr const char* kSettings = "baud=9600 parity=E data=8 stop=1";

TEST(Win32SerialPorts, MissingComPortFailsAtCreateFileWithTheSystemMessage) {
    PortTable ports_;
    const std::int32_t number = ports_.CommOpen(97, "COM97", kSettings);
    EXPECT_TRUE(number == ERROR_FILE_NOT_FOUND || number == ERROR_PATH_NOT_FOUND) << number;
    EXPECT_EQ(ports_.LastCommError().source, "CommOpen (CreateFile)");
    // The system's own text, without the line break it ends with.
    EXPECT_FALSE(ports_.LastCommError().description.empty());
    EXPECT_EQ(ports_.LastCommError().description.find("System error"), std::string::npos);
    EXPECT_EQ(ports_.LastCommError().description.find('\n'), std::string::npos);
}

TEST(Win32SerialPorts, CallsOnAClosedPortReportTheInvalidHandle) {
    PortTable ports_;
    std::string data;
    EXPECT_EQ(ports_.CommRead(96, data, 4096), -1);
    EXPECT_EQ(ports_.LastCommError().number, ERROR_INVALID_HANDLE);
    EXPECT_EQ(ports_.LastCommError().source, "CommRead (ClearCommError)");
}

TEST(Win32MessagePump, YieldDispatchesEveryQueuedMessage) {
    ASSERT_TRUE(PostThreadMessageA(GetCurrentThreadId(), WM_APP, 0, 0));
    ASSERT_TRUE(PostThreadMessageA(GetCurrentThreadId(), WM_APP + 1, 0, 0));
    host::YieldToHost();
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
}

bool RunningUnderWine() {
    HMODULE ntdll = GetModuleHandleA("ntdll.dll");
    return ntdll != nullptr && GetProcAddress(ntdll, "wine_get_version") != nullptr;
}

std::string Environment(const char* name) {
    char value[MAX_PATH];
    const DWORD length = GetEnvironmentVariableA(name, value, sizeof value);
    return length > 0 && length < sizeof value ? std::string(value, length) : std::string();
}

// A Unix path as this process sees it, through Wine's drive for the root.
std::string OnDriveZ(std::string path) {
    for (char& c : path) {
        if (c == '/') c = '\\';
    }
    return "Z:" + path;
}

// Under Wine this counts in ticks of 10 ms, so a difference of one tick can be rounding.
double ThreadCpuSeconds() {
    FILETIME created, exited, kernel, user;
    GetThreadTimes(GetCurrentThread(), &created, &exited, &kernel, &user);
    auto seconds = [](const FILETIME& t) {
        return ((static_cast<std::uint64_t>(t.dwHighDateTime) << 32) | t.dwLowDateTime) / 1e7;
    };
    return seconds(kernel) + seconds(user);
}

// A null-modem cable under Wine: socat joins two pseudo-terminals and the prefix names them
// COMn and COMn+1. The host's end goes through the port table; the printer's end is a
// plain handle. socat leaves only after some time without traffic, so every test gets a
// cable of its own.
class WineCableTest : public test_support::SerialTest {
  protected:
    // Long enough to outlive the wineserver, which may have taken the host's end as its
    // controlling terminal and would print its object table when that hangs up.
    virtual int QuietSecondsBeforeHangUp() const { return 30; }

    void SetUp() override {
        if (!RunningUnderWine()) GTEST_SKIP() << "the cable is a pair of Linux pseudo-terminals";
        // socat removes its link when it leaves, even one a later run made: runs started
        // one after the other use ports of their own.
        static int next_port = 20 + static_cast<int>(GetCurrentProcessId() % 7) * 10;
        host_ = next_port;
        printer_port_ = next_port + 1;
        next_port += 2;
        std::string prefix = Environment("WINEPREFIX");
        if (prefix.empty()) prefix = Environment("HOME") + "/.wine";
        const std::string socat = "/usr/bin/socat";
        ASSERT_NE(GetFileAttributesA(OnDriveZ(socat).c_str()), INVALID_FILE_ATTRIBUTES)
            << "socat is missing (scripts/install-deps.sh installs it)";
        // Wine hands a Linux program this process's descriptors, its server connection
        // among them: socat must not hold those (nor the runner's output) after we exit.
        std::string script =
            "exec </dev/null >/dev/null 2>&1; for f in /proc/self/fd/*; do n=${f##*/}; "
            "[ $n -gt 2 ] && eval exec $n\\>\\&-; done; exec " +
            socat + " -T " + std::to_string(QuietSecondsBeforeHangUp());
        for (int port : {host_, printer_port_}) {
            const std::string link = prefix + "/dosdevices/com" + std::to_string(port);
            // A link left by an earlier run may name a terminal someone else holds now.
            DeleteFileA(OnDriveZ(link).c_str());
            script += " 'pty,raw,echo=0,link=" + link + "'";
        }
        std::string command = "/bin/bash -c \"" + script + "\"";
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        ASSERT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &startup, &process))
            << GetLastError();
        // Wine starts a Linux program without a process handle; it ends with the cable.
        if (process.hProcess != nullptr) CloseHandle(process.hProcess);
        if (process.hThread != nullptr) CloseHandle(process.hThread);

        const std::string host_name = "COM" + std::to_string(host_);
        const std::string printer_name = "\\\\.\\COM" + std::to_string(printer_port_);
        const auto deadline = steady_clock::now() + milliseconds(10000);
        bool host_open = false;
        while (steady_clock::now() < deadline) {
            if (!host_open) {
                host_open = ports_.CommOpen(host_, host_name, kSettings) == 0;
                if (!host_open) ports_.CommClose(host_);
            }
            if (host_open && printer_ == INVALID_HANDLE_VALUE) {
                printer_ = CreateFileA(printer_name.c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                       nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
            }
            if (printer_ != INVALID_HANDLE_VALUE) break;
            Sleep(20);
        }
        ASSERT_TRUE(host_open) << "COM" << host_ << ": " << ports_.LastCommError().description;
        ASSERT_NE(printer_, INVALID_HANDLE_VALUE) << printer_name << ": " << GetLastError();
    }

    void TearDown() override {
        if (host_ != 0) ports_.CommClose(host_);
        ClosePrinterEnd();
    }

    void ClosePrinterEnd() {
        if (printer_ != INVALID_HANDLE_VALUE) CloseHandle(printer_);
        printer_ = INVALID_HANDLE_VALUE;
    }

    void PrinterSends(const std::string& bytes) {
        DWORD written = 0;
        ASSERT_TRUE(
            WriteFile(printer_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
        ASSERT_EQ(written, bytes.size());
    }

    // Reads from the host's end until `expected` bytes came, waiting in short slices.
    std::string HostReceives(std::size_t expected) {
        std::string got;
        for (int i = 0; i < 100 && got.size() < expected; ++i) {
            if (!ports_.CommWaitReadable(host_, 20)) continue;
            std::string chunk;
            EXPECT_GE(ports_.CommRead(host_, chunk, 4096), 0);
            got += chunk;
        }
        return got;
    }

    int host_ = 0;
    int printer_port_ = 0;
    HANDLE printer_ = INVALID_HANDLE_VALUE;
};

// The wait takes the first byte of a reply off the line: the next read must count it and
// hand it out first, before what follows it.
TEST_F(WineCableTest, TheByteAWaitTakesIsReadFirstAndOnlyOnce) {
    std::thread printer([&] {
        Sleep(100);
        PrinterSends("\x02");
        Sleep(100);
        PrinterSends("S1\x03");
    });
    ASSERT_TRUE(ports_.CommWaitReadable(host_, 2000));
    std::string first;
    EXPECT_GE(ports_.CommRead(host_, first, 4096), 1);
    const std::string rest = HostReceives(4 - first.size());
    printer.join();
    EXPECT_EQ(first.substr(0, 1), "\x02");
    EXPECT_EQ(first + rest, "\x02S1\x03");
}

// A read of fewer bytes than are waiting (the session's lone check byte) takes the waited
// byte and leaves the line's bytes, in order, for the next read.
TEST_F(WineCableTest, ShortReadsAfterAWaitKeepTheOrder) {
    std::thread printer([&] {
        Sleep(100);
        PrinterSends("A");
    });
    ASSERT_TRUE(ports_.CommWaitReadable(host_, 2000));
    printer.join();
    PrinterSends("BC");
    Sleep(100);
    const auto start = steady_clock::now();
    std::string data;
    EXPECT_EQ(ports_.CommRead(host_, data, 1), 1);
    EXPECT_EQ(data, "A");
    EXPECT_EQ(ports_.CommRead(host_, data, 1), 1);
    EXPECT_EQ(data, "B");
    EXPECT_EQ(ports_.CommRead(host_, data, 4096), 1);
    EXPECT_EQ(data, "C");
    EXPECT_EQ(ports_.CommRead(host_, data, 4096), 0);
    // None of them sat out the port's one-second read time-out.
    EXPECT_LT(steady_clock::now() - start, milliseconds(500));
}

TEST_F(WineCableTest, FlushDropsTheByteAWaitTook) {
    std::thread printer([&] {
        Sleep(50);
        PrinterSends("\x15");
    });
    ASSERT_TRUE(ports_.CommWaitReadable(host_, 2000));
    printer.join();
    EXPECT_EQ(ports_.CommFlush(host_), 0);
    std::string data;
    EXPECT_EQ(ports_.CommRead(host_, data, 4096), 0);
    EXPECT_FALSE(ports_.CommWaitReadable(host_, 50));
}

TEST_F(WineCableTest, WaitSleepsThroughSilenceAndWakesWithTheFirstByte) {
    const double cpu_before = ThreadCpuSeconds();
    auto start = steady_clock::now();
    EXPECT_FALSE(ports_.CommWaitReadable(host_, 1000));
    const auto elapsed = steady_clock::now() - start;
    EXPECT_GE(elapsed, milliseconds(990));
    EXPECT_LT(elapsed, milliseconds(1500));
    // A 1 ms sleep-and-look loop costs Wine about 3 % of the time (30 ms here).
    EXPECT_LT(ThreadCpuSeconds() - cpu_before, 0.015);

    steady_clock::time_point sent;
    std::thread printer([&] {
        Sleep(100);
        sent = steady_clock::now();
        PrinterSends("\x06");
    });
    EXPECT_TRUE(ports_.CommWaitReadable(host_, 2000));
    const auto woke = steady_clock::now();
    printer.join();
    EXPECT_LT(woke - sent, milliseconds(20));
    std::string data;
    EXPECT_EQ(ports_.CommRead(host_, data, 4096), 1);
    EXPECT_EQ(data, "\x06");
}

class WineCableHangUpTest : public WineCableTest {
  protected:
    int QuietSecondsBeforeHangUp() const override { return 1; }
};

TEST_F(WineCableHangUpTest, WaitAfterThePrinterHangsUpSitsOutTheTime) {
    ClosePrinterEnd();
    // socat leaves after a second without traffic and hangs up the host's end.
    Sleep(1500);
    const double cpu_before = ThreadCpuSeconds();
    const auto start = steady_clock::now();
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(ports_.CommWaitReadable(host_, 100));
    EXPECT_GE(steady_clock::now() - start, milliseconds(290));
    EXPECT_LT(ThreadCpuSeconds() - cpu_before, 0.015);
}

}  // namespace
}  // namespace corvid::serial
