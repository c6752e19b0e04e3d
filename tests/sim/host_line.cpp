#include "host_line.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace corvid::sim::testing {

namespace {

bool IsCompleteReply(const std::string& bytes) {
    std::size_t stx = bytes.find('\x02');
    if (stx == std::string::npos) {
        return !bytes.empty() && (bytes.back() == '\x06' || bytes.back() == '\x15');
    }
    std::size_t end = bytes.find_first_of("\x03\x17\x04", stx);
    return end != std::string::npos && end + 1 < bytes.size();
}

}  // namespace

HostLine::HostLine(const std::string& path) {
    fd_ = open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd_ < 0) throw std::system_error(errno, std::generic_category(), path);
    termios raw{};
    tcgetattr(fd_, &raw);
    cfmakeraw(&raw);
    tcsetattr(fd_, TCSANOW, &raw);
}

HostLine::~HostLine() { close(fd_); }

void HostLine::Send(std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t n = write(fd_, bytes.data(), bytes.size());
        if (n < 0) throw std::system_error(errno, std::generic_category(), "write");
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
}

std::string HostLine::ReadChunk(milliseconds timeout) {
    pollfd p{fd_, POLLIN, 0};
    if (poll(&p, 1, static_cast<int>(timeout.count())) <= 0 || (p.revents & POLLIN) == 0) {
        return {};
    }
    char buffer[4096];
    ssize_t n = read(fd_, buffer, sizeof buffer);
    return n > 0 ? std::string(buffer, static_cast<std::size_t>(n)) : std::string();
}

std::string HostLine::ReadReply(milliseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    std::string reply;
    while (!IsCompleteReply(reply)) {
        auto left =
            std::chrono::duration_cast<milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) break;
        reply += ReadChunk(left);
    }
    return reply;
}

}  // namespace corvid::sim::testing
