// A null-modem cable under Wine: socat joins two pseudo-terminals and the prefix names them
// COMn and COMn+1. The host's end goes through the port table; the printer's end is a
// plain handle. socat leaves only after some time without traffic, so every test gets a
// cable of its own.
#include <windows.h>

#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "serial/printer_end.h"

namespace corvid::serial {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

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

class WineCable : public PrinterEnd {
  public:
    // Plugs the cable in and opens the host's end in `ports`. After `quietSeconds` without
    // traffic socat leaves and hangs up the host's end.
    WineCable(PortTable& ports, int quietSeconds) {
        // socat removes its link when it leaves, even one a later run made: runs started
        // one after the other use ports of their own.
        static int next_port = 20 + static_cast<int>(GetCurrentProcessId() % 7) * 10;
        hostPort = next_port;
        const int printer_port = next_port + 1;
        next_port += 2;
        std::string prefix = Environment("WINEPREFIX");
        if (prefix.empty()) prefix = Environment("HOME") + "/.wine";
        const std::string socat = "/usr/bin/socat";
        if (GetFileAttributesA(OnDriveZ(socat).c_str()) == INVALID_FILE_ATTRIBUTES) {
            throw std::runtime_error("socat is missing (scripts/install-deps.sh installs it)");
        }
        // Wine hands a Linux program this process's descriptors, its server connection
        // among them: socat must not hold those (nor the runner's output) after we exit.
        std::string script =
            "exec </dev/null >/dev/null 2>&1; for f in /proc/self/fd/*; do n=${f##*/}; "
            "[ $n -gt 2 ] && eval exec $n\\>\\&-; done; exec " +
            socat + " -T " + std::to_string(quietSeconds);
        for (int port : {hostPort, printer_port}) {
            const std::string link = prefix + "/dosdevices/com" + std::to_string(port);
            // A link left by an earlier run may name a terminal someone else holds now.
            DeleteFileA(OnDriveZ(link).c_str());
            script += " 'pty,raw,echo=0,link=" + link + "'";
        }
        std::string command = "/bin/bash -c \"" + script + "\"";
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                            &startup, &process)) {
            throw std::runtime_error("socat did not start: " + std::to_string(GetLastError()));
        }
        // Wine starts a Linux program without a process handle; it ends with the cable.
        if (process.hProcess != nullptr) CloseHandle(process.hProcess);
        if (process.hThread != nullptr) CloseHandle(process.hThread);

        const std::string host_name = "COM" + std::to_string(hostPort);
        const std::string printer_name = "\\\\.\\COM" + std::to_string(printer_port);
        const auto deadline = steady_clock::now() + milliseconds(10000);
        bool host_open = false;
        while (steady_clock::now() < deadline && printer_ == INVALID_HANDLE_VALUE) {
            if (!host_open) {
                host_open = ports.CommOpen(hostPort, host_name, kLineSettings) == 0;
                if (!host_open) ports.CommClose(hostPort);
            }
            if (host_open) {
                printer_ = CreateFileA(printer_name.c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                       nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
            }
            if (printer_ == INVALID_HANDLE_VALUE) Sleep(20);
        }
        if (printer_ == INVALID_HANDLE_VALUE) {
            throw std::runtime_error("the cable's ends did not open: " +
                                     ports.LastCommError().description);
        }
    }
    ~WineCable() override { ClosePrinterEnd(); }

    void Send(const std::string& bytes) override {
        DWORD written = 0;
        if (!WriteFile(printer_, bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                       nullptr) ||
            written != bytes.size()) {
            throw std::runtime_error("the printer could not send");
        }
    }
    std::string Receive(std::size_t expected, milliseconds timeout) override {
        COMMTIMEOUTS timeouts{};
        timeouts.ReadIntervalTimeout = MAXDWORD;  // a read returns what is there
        SetCommTimeouts(printer_, &timeouts);
        std::string got;
        const auto deadline = steady_clock::now() + timeout;
        while (got.size() < expected && steady_clock::now() < deadline) {
            char buffer[512];
            DWORD n = 0;
            if (!ReadFile(printer_, buffer, sizeof buffer, &n, nullptr)) break;
            if (n == 0) Sleep(10);
            got.append(buffer, n);
        }
        return got;
    }
    void HangUp() override {
        ClosePrinterEnd();
        Sleep(1500);  // socat leaves after a second without traffic
    }

  private:
    void ClosePrinterEnd() {
        if (printer_ != INVALID_HANDLE_VALUE) CloseHandle(printer_);
        printer_ = INVALID_HANDLE_VALUE;
    }

    HANDLE printer_ = INVALID_HANDLE_VALUE;
};

}  // namespace

std::vector<LineKind> PlatformLines() {
    if (!RunningUnderWine()) return {};  // the cable is a pair of Linux pseudo-terminals
    // A cable whose printer stays is kept long enough to outlive the wineserver, which may
    // have taken the host's end as its controlling terminal and would print its object
    // table when that hangs up.
    return {{"WineCable", [](PortTable& ports, bool willHangUp) -> std::unique_ptr<PrinterEnd> {
                 return std::make_unique<WineCable>(ports, willHangUp ? 1 : 30);
             }}};
}

double ThreadCpuSeconds() {
    FILETIME created, exited, kernel, user;
    GetThreadTimes(GetCurrentThread(), &created, &exited, &kernel, &user);
    auto seconds = [](const FILETIME& t) {
        return ((static_cast<std::uint64_t>(t.dwHighDateTime) << 32) | t.dwLowDateTime) / 1e7;
    };
    return seconds(kernel) + seconds(user);
}

}  // namespace corvid::serial
