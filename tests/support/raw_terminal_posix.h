// A terminal's end in raw mode for tests: the master of a new pseudo-terminal, or a
// terminal opened by its path. Reads wait with poll, in bounded slices.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>

namespace corvid::test_support {

class RawTerminal {
  public:
    // The master of a new pseudo-terminal; throws when the system has none to give.
    RawTerminal() : RawTerminal(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), true) {}
    explicit RawTerminal(const std::string& path)
        : RawTerminal(open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), false) {}
    ~RawTerminal() { Close(); }
    RawTerminal(const RawTerminal&) = delete;
    RawTerminal& operator=(const RawTerminal&) = delete;

    int fd() const { return fd_; }
    std::string SlavePath() const { return ptsname(fd_); }
    void Send(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t n = write(fd_, bytes.data(), bytes.size());
            if (n < 0) throw std::system_error(errno, std::generic_category(), "write");
            bytes.remove_prefix(static_cast<std::size_t>(n));
        }
    }
    // One read of whatever arrives within `timeout`; empty when nothing did.
    std::string ReadChunk(std::chrono::milliseconds timeout) {
        pollfd p{fd_, POLLIN, 0};
        if (poll(&p, 1, static_cast<int>(timeout.count())) <= 0) return {};
        char buffer[4096];
        const ssize_t n = (p.revents & POLLIN) != 0 ? read(fd_, buffer, sizeof buffer) : 0;
        closed_ = n <= 0;
        return n > 0 ? std::string(buffer, static_cast<std::size_t>(n)) : std::string();
    }
    // What arrives until `done` says so or `timeout` passes.
    std::string ReadUntil(const std::function<bool(const std::string&)>& done,
                          std::chrono::milliseconds timeout) {
        const auto deadline = std::chrono::steady_clock::now() + timeout;
        std::string got;
        closed_ = false;
        while (!done(got) && !closed_) {
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                deadline - std::chrono::steady_clock::now());
            if (left.count() <= 0) break;
            got += ReadChunk(std::min(left, std::chrono::milliseconds(20)));
        }
        return got;
    }
    void Close() {
        if (fd_ >= 0) close(fd_);
        fd_ = -1;
    }

  private:
    RawTerminal(int fd, bool master) : fd_(fd) {
        termios raw{};
        if (fd_ < 0 || (master && (grantpt(fd_) != 0 || unlockpt(fd_) != 0)) ||
            tcgetattr(fd_, &raw) != 0) {
            throw std::system_error(errno, std::generic_category(), "no terminal");
        }
        cfmakeraw(&raw);
        tcsetattr(fd_, TCSANOW, &raw);
    }

    int fd_ = -1;
    bool closed_ = false;  // the last read found the line hung up
};

}  // namespace corvid::test_support
