// Sockets on Windows: Winsock, non-blocking, waits on select() (WSAPoll misses failed
// connects on some versions).
#include <winsock2.h>
#include <ws2tcpip.h>

#include <algorithm>

#include "serial/socket.h"
#include "serial/system_message.h"

namespace corvid::serial {
namespace {

using Clock = std::chrono::steady_clock;

SystemFailure Failure(int number = WSAGetLastError()) {
    return {number, "", SystemMessage(number)};
}

timeval Timeval(std::chrono::milliseconds timeout) {
    const long long ms = std::clamp<long long>(timeout.count(), 0, 1LL << 30);
    return {static_cast<long>(ms / 1000), static_cast<long>(ms % 1000 * 1000)};
}

enum class Await { kRead, kWrite, kConnect };

// select() on one socket; true when it reported anything. A failed connect shows in the
// exception set, not the write set.
bool Wait(SOCKET socket, Await what, std::chrono::milliseconds timeout) {
    fd_set ready;
    fd_set failed;
    FD_ZERO(&ready);
    FD_ZERO(&failed);
    FD_SET(socket, &ready);
    FD_SET(socket, &failed);
    timeval limit = Timeval(timeout);
    const bool read = what == Await::kRead;
    return select(0, read ? &ready : nullptr, read ? nullptr : &ready,
                  what == Await::kConnect ? &failed : nullptr, &limit) > 0;
}

class Win32Socket : public Socket {
  public:
    explicit Win32Socket(SOCKET socket) : socket_(socket) {}
    ~Win32Socket() override {
        if (socket_ != INVALID_SOCKET) closesocket(socket_);
    }

    MaybeFailure Send(std::string_view data, std::size_t& sent) override {
        sent = 0;
        const int size = static_cast<int>(std::min<std::size_t>(data.size(), 1 << 20));
        const int n = ::send(socket_, data.data(), size, 0);
        if (n != SOCKET_ERROR) {
            sent = static_cast<std::size_t>(n);
            return std::nullopt;
        }
        const int number = WSAGetLastError();
        if (number == WSAEWOULDBLOCK) return std::nullopt;
        return Failure(number);
    }

    MaybeFailure Receive(std::string& data) override {
        char buffer[16384];
        for (;;) {
            const int n = ::recv(socket_, buffer, sizeof buffer, 0);
            if (n > 0) {
                data.append(buffer, static_cast<std::size_t>(n));
                continue;
            }
            if (n == 0) return NetworkFailure("", NetworkProblem::kConnectionLost);
            const int number = WSAGetLastError();
            if (number == WSAEWOULDBLOCK) return std::nullopt;
            return Failure(number);
        }
    }

    bool WaitReadable(std::chrono::milliseconds timeout) override {
        return Wait(socket_, Await::kRead, timeout);
    }
    bool WaitWritable(std::chrono::milliseconds timeout) override {
        return Wait(socket_, Await::kWrite, timeout);
    }

    MaybeFailure Close() override {
        const SOCKET socket = socket_;
        socket_ = INVALID_SOCKET;
        if (closesocket(socket) != 0) return Failure();
        return std::nullopt;
    }

  private:
    SOCKET socket_;
};

// One address: a non-blocking connect, waited for until `deadline`.
SOCKET ConnectTo(const addrinfo& address, Clock::time_point deadline, SystemFailure& failure) {
    SOCKET s = ::socket(address.ai_family, address.ai_socktype, address.ai_protocol);
    if (s == INVALID_SOCKET) {
        failure = Failure();
        return INVALID_SOCKET;
    }
    u_long non_blocking = 1;
    int number = 0;
    if (ioctlsocket(s, FIONBIO, &non_blocking) != 0) {
        number = WSAGetLastError();
    } else if (::connect(s, address.ai_addr, static_cast<int>(address.ai_addrlen)) != 0) {
        number = WSAGetLastError();
        if (number == WSAEWOULDBLOCK) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
            int size = sizeof number;
            if (!Wait(s, Await::kConnect, std::max(left, std::chrono::milliseconds(0)))) {
                number = WSAETIMEDOUT;
            } else if (getsockopt(s, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&number),
                                  &size) != 0) {
                number = WSAGetLastError();
            }
        }
    }
    if (number != 0) {
        failure = Failure(number);
        closesocket(s);
        return INVALID_SOCKET;
    }
    // Frames are small and each waits for an answer: no coalescing delay.
    const BOOL on = TRUE;
    setsockopt(s, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
    return s;
}

// Winsock is started once for the process and left running until it ends.
int StartWinsock() {
    static const int started = [] {
        WSADATA data;
        return WSAStartup(MAKEWORD(2, 2), &data);
    }();
    return started;
}

}  // namespace

SystemFailure NetworkFailure(std::string call, NetworkProblem problem) {
    int number = WSAEINVAL;
    switch (problem) {
        case NetworkProblem::kInvalidArgument:
            number = ERROR_INVALID_PARAMETER;
            break;
        case NetworkProblem::kConnectionLost:
            number = WSAECONNRESET;
            break;
        case NetworkProblem::kTimedOut:
            number = WSAETIMEDOUT;
            break;
        case NetworkProblem::kProtocolRefused:
            number = WSAEPROTONOSUPPORT;
            break;
    }
    SystemFailure failure = Failure(number);
    failure.call = std::move(call);
    return failure;
}

std::unique_ptr<Socket> ConnectSocket(const std::string& host, std::uint16_t port,
                                      std::chrono::milliseconds timeout, SystemFailure& failure) {
    const auto deadline = Clock::now() + timeout;
    if (const int number = StartWinsock()) {
        failure = Failure(number);
        return nullptr;
    }
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_protocol = IPPROTO_TCP;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* addresses = nullptr;
    const int found = getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &addresses);
    if (found != 0) {
        failure = Failure(found);
        return nullptr;
    }
    std::unique_ptr<Socket> connected;
    for (const addrinfo* address = addresses; address != nullptr && !connected;
         address = address->ai_next) {
        const SOCKET s = ConnectTo(*address, deadline, failure);
        if (s != INVALID_SOCKET) connected = std::make_unique<Win32Socket>(s);
    }
    freeaddrinfo(addresses);
    return connected;
}

}  // namespace corvid::serial
