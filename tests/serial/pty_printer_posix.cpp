#include "serial/pty_printer_posix.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "serial/port_devices.h"

namespace corvid::serial {

PtyPrinter::PtyPrinter() {
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios raw{};
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0 ||
        tcgetattr(master_, &raw) != 0) {
        throw std::system_error(errno, std::generic_category(), "no pseudo-terminal");
    }
    cfmakeraw(&raw);
    tcsetattr(master_, TCSANOW, &raw);
}

PtyPrinter::~PtyPrinter() { HangUp(); }

std::string PtyPrinter::SlavePath() const { return ptsname(master_); }

void PtyPrinter::Send(const std::string& bytes) {
    if (write(master_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
        throw std::system_error(errno, std::generic_category(), "the printer could not send");
    }
}

std::string PtyPrinter::Receive(std::size_t expected, std::chrono::milliseconds timeout) {
    std::string got;
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (got.size() < expected && std::chrono::steady_clock::now() < deadline) {
        pollfd p{master_, POLLIN, 0};
        if (poll(&p, 1, 20) <= 0) continue;
        char buffer[512];
        const ssize_t n = read(master_, buffer, sizeof buffer);
        if (n <= 0) break;
        got.append(buffer, static_cast<std::size_t>(n));
    }
    return got;
}

void PtyPrinter::HangUp() {
    if (master_ >= 0) close(master_);
    master_ = -1;
}

std::vector<LineKind> PlatformLines() {
    return {{"PseudoTerminal", [](PortTable& ports, bool) -> std::unique_ptr<PrinterEnd> {
                 auto printer = std::make_unique<PtyPrinter>();
                 printer->hostPort = 5;
                 SetPortDevice(5, printer->SlavePath());
                 if (ports.CommOpen(5, "COM5", kLineSettings) != 0) return nullptr;
                 return printer;
             }}};
}

}  // namespace corvid::serial
