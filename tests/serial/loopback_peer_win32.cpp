#include <winsock2.h>
#include <ws2tcpip.h>

#include <cstdint>
#include <stdexcept>

#include "serial/loopback_peer.h"

namespace corvid::serial {

struct LoopbackPeer::Sockets {
    SOCKET listening = INVALID_SOCKET;
    SOCKET connection = INVALID_SOCKET;
};

namespace {

void CloseIfOpen(SOCKET& s) {
    if (s != INVALID_SOCKET) closesocket(s);
    s = INVALID_SOCKET;
}

bool Readable(SOCKET s, std::chrono::milliseconds timeout) {
    fd_set ready;
    FD_ZERO(&ready);
    FD_SET(s, &ready);
    timeval limit{static_cast<long>(timeout.count() / 1000),
                  static_cast<long>(timeout.count() % 1000 * 1000)};
    return select(0, &ready, nullptr, nullptr, &limit) > 0;
}

}  // namespace

LoopbackPeer::LoopbackPeer() : sockets_(std::make_unique<Sockets>()) {
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
    sockets_->listening = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    if (sockets_->listening == INVALID_SOCKET ||
        bind(sockets_->listening, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        listen(sockets_->listening, 4) != 0 ||
        getsockname(sockets_->listening, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        throw std::runtime_error("no listening socket on 127.0.0.1");
    }
    port_ = ntohs(address.sin_port);
}

LoopbackPeer::~LoopbackPeer() {
    CloseIfOpen(sockets_->connection);
    CloseIfOpen(sockets_->listening);
    WSACleanup();
}

std::string LoopbackPeer::Url(const char* scheme) const {
    return std::string(scheme) + "://127.0.0.1:" + std::to_string(port_);
}

bool LoopbackPeer::Accept(std::chrono::milliseconds timeout) {
    if (!Readable(sockets_->listening, timeout)) return false;
    CloseIfOpen(sockets_->connection);
    sockets_->connection = accept(sockets_->listening, nullptr, nullptr);
    return sockets_->connection != INVALID_SOCKET;
}

void LoopbackPeer::Send(const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const int n = send(sockets_->connection, bytes.data() + sent,
                           static_cast<int>(bytes.size() - sent), 0);
        if (n <= 0) throw std::runtime_error("the peer could not send");
        sent += static_cast<std::size_t>(n);
    }
}

std::string LoopbackPeer::Receive(std::size_t expected, std::chrono::milliseconds timeout) {
    std::string got;
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (got.size() < expected) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0 || !Readable(sockets_->connection, left)) break;
        char buffer[4096];
        const int n = recv(sockets_->connection, buffer, sizeof buffer, 0);
        if (n <= 0) break;
        got.append(buffer, static_cast<std::size_t>(n));
    }
    return got;
}

void LoopbackPeer::Hangup() { CloseIfOpen(sockets_->connection); }

void LoopbackPeer::StopListening() {
    Hangup();
    CloseIfOpen(sockets_->listening);
}

std::int32_t ConnectionRefusedNumber() { return WSAECONNREFUSED; }

// Under Wine this counts in ticks of 10 ms.
double ThreadCpuSeconds() {
    FILETIME created, exited, kernel, user;
    GetThreadTimes(GetCurrentThread(), &created, &exited, &kernel, &user);
    auto seconds = [](const FILETIME& t) {
        return ((static_cast<std::uint64_t>(t.dwHighDateTime) << 32) | t.dwLowDateTime) / 1e7;
    };
    return seconds(kernel) + seconds(user);
}

}  // namespace corvid::serial
