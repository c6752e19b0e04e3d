// Sockets on POSIX: non-blocking, waits on poll(), sends that never raise SIGPIPE.
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "serial/socket.h"

namespace corvid::serial {
namespace {

using Clock = std::chrono::steady_clock;

SystemFailure Failure(int number = errno) { return {number, "", std::strerror(number)}; }

int MillisecondsUntil(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    return static_cast<int>(std::clamp<long long>(left.count(), 0, 1 << 30));
}

// poll() for `events`, resumed after signals; true when anything at all was reported.
bool Wait(int fd, short events, std::chrono::milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    for (;;) {
        pollfd wait{fd, events, 0};
        const int ready = poll(&wait, 1, MillisecondsUntil(deadline));
        if (ready > 0) return true;
        if (ready == 0 || errno != EINTR) return false;
    }
}

class PosixSocket : public Socket {
  public:
    explicit PosixSocket(int fd) : fd_(fd) {}
    ~PosixSocket() override {
        if (fd_ >= 0) ::close(fd_);
    }

    MaybeFailure Send(std::string_view data, std::size_t& sent) override {
        sent = 0;
        for (;;) {
            const ssize_t n = ::send(fd_, data.data(), data.size(), MSG_NOSIGNAL);
            if (n >= 0) {
                sent = static_cast<std::size_t>(n);
                return std::nullopt;
            }
            if (errno == EAGAIN || errno == EWOULDBLOCK) return std::nullopt;
            if (errno != EINTR) return Failure();
        }
    }

    MaybeFailure Receive(std::string& data) override {
        char buffer[16384];
        for (;;) {
            const ssize_t n = ::recv(fd_, buffer, sizeof buffer, 0);
            if (n > 0) {
                data.append(buffer, static_cast<std::size_t>(n));
                continue;
            }
            if (n == 0) return NetworkFailure("", NetworkProblem::kConnectionLost);
            if (errno == EAGAIN || errno == EWOULDBLOCK) return std::nullopt;
            if (errno != EINTR) return Failure();
        }
    }

    bool WaitReadable(std::chrono::milliseconds timeout) override {
        return Wait(fd_, POLLIN, timeout);
    }
    bool WaitWritable(std::chrono::milliseconds timeout) override {
        return Wait(fd_, POLLOUT, timeout);
    }

    MaybeFailure Close() override {
        const int fd = fd_;
        fd_ = -1;
        if (::close(fd) != 0) return Failure();
        return std::nullopt;
    }

  private:
    int fd_;
};

// One address: a non-blocking connect, waited for until `deadline`; -1 and `failure`
// when it does not go through.
int ConnectTo(const addrinfo& address, Clock::time_point deadline, SystemFailure& failure) {
    const int fd = ::socket(address.ai_family, address.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC,
                            address.ai_protocol);
    if (fd < 0) {
        failure = Failure();
        return -1;
    }
    int number = 0;
    if (::connect(fd, address.ai_addr, address.ai_addrlen) != 0) {
        number = errno;
        if (number == EINPROGRESS || number == EINTR) {
            socklen_t size = sizeof number;
            if (!Wait(fd, POLLOUT, std::chrono::milliseconds(MillisecondsUntil(deadline)))) {
                number = ETIMEDOUT;
            } else if (getsockopt(fd, SOL_SOCKET, SO_ERROR, &number, &size) != 0) {
                number = errno;
            }
        }
    }
    if (number != 0) {
        failure = Failure(number);
        ::close(fd);
        return -1;
    }
    // Frames are small and each waits for an answer: no coalescing delay.
    const int on = 1;
    setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return fd;
}

}  // namespace

SystemFailure NetworkFailure(std::string call, NetworkProblem problem) {
    int number = EINVAL;
    switch (problem) {
        case NetworkProblem::kInvalidArgument:
            number = EINVAL;
            break;
        case NetworkProblem::kConnectionLost:
            number = ECONNRESET;
            break;
        case NetworkProblem::kTimedOut:
            number = ETIMEDOUT;
            break;
        case NetworkProblem::kProtocolRefused:
            number = EPROTONOSUPPORT;
            break;
    }
    SystemFailure failure = Failure(number);
    failure.call = std::move(call);
    return failure;
}

std::unique_ptr<Socket> ConnectSocket(const std::string& host, std::uint16_t port,
                                      std::chrono::milliseconds timeout, SystemFailure& failure) {
    const auto deadline = Clock::now() + timeout;
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_protocol = IPPROTO_TCP;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* addresses = nullptr;
    const int found = getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &addresses);
    if (found != 0) {
        failure = found == EAI_SYSTEM ? Failure() : SystemFailure{found, "", gai_strerror(found)};
        return nullptr;
    }
    std::unique_ptr<Socket> connected;
    for (const addrinfo* address = addresses; address != nullptr && !connected;
         address = address->ai_next) {
        const int fd = ConnectTo(*address, deadline, failure);
        if (fd >= 0) connected = std::make_unique<PosixSocket>(fd);
    }
    freeaddrinfo(addresses);
    return connected;
}

}  // namespace corvid::serial
