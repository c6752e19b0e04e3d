#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#endif

#include <cstdint>
#include <stdexcept>

#include "serial/loopback_peer.h"

namespace corvid::serial {
namespace {

// The few places where Winsock differs from the sockets of the other systems.
#ifdef _WIN32
using Descriptor = SOCKET;
using AddressSize = int;
constexpr Descriptor kNone = INVALID_SOCKET;
constexpr int kSendFlags = 0;
void CloseSocket(Descriptor s) { closesocket(s); }
#else
using Descriptor = int;
using AddressSize = socklen_t;
constexpr Descriptor kNone = -1;
constexpr int kSendFlags = MSG_NOSIGNAL;
void CloseSocket(Descriptor s) { close(s); }
#endif

}  // namespace

struct LoopbackPeer::Sockets {
    Descriptor listening = kNone;
    Descriptor connection = kNone;
};

namespace {

void CloseIfOpen(Descriptor& s) {
    if (s != kNone) CloseSocket(s);
    s = kNone;
}

bool Readable(Descriptor s, std::chrono::milliseconds timeout) {
    fd_set ready;
    FD_ZERO(&ready);
    FD_SET(s, &ready);
    timeval limit{static_cast<long>(timeout.count() / 1000),
                  static_cast<long>(timeout.count() % 1000 * 1000)};
    return select(static_cast<int>(s) + 1, &ready, nullptr, nullptr, &limit) > 0;
}

}  // namespace

LoopbackPeer::LoopbackPeer() : sockets_(std::make_unique<Sockets>()) {
#ifdef _WIN32
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
#endif
    sockets_->listening = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    AddressSize size = sizeof address;
    if (sockets_->listening == kNone ||
        bind(sockets_->listening, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        listen(sockets_->listening, 4) != 0 ||
        getsockname(sockets_->listening, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        throw std::runtime_error("no listening socket on 127.0.0.1");
    }
    port_ = ntohs(address.sin_port);
}

LoopbackPeer::~LoopbackPeer() {
    StopListening();
#ifdef _WIN32
    WSACleanup();
#endif
}

bool LoopbackPeer::Accept(std::chrono::milliseconds timeout) {
    if (!Readable(sockets_->listening, timeout)) return false;
    CloseIfOpen(sockets_->connection);
    sockets_->connection = accept(sockets_->listening, nullptr, nullptr);
    return sockets_->connection != kNone;
}

void LoopbackPeer::Send(const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const auto n = send(sockets_->connection, bytes.data() + sent,
                            static_cast<int>(bytes.size() - sent), kSendFlags);
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
        const auto n = recv(sockets_->connection, buffer, sizeof buffer, 0);
        if (n <= 0) break;
        got.append(buffer, static_cast<std::size_t>(n));
    }
    return got;
}

void LoopbackPeer::HangUp() { CloseIfOpen(sockets_->connection); }

void LoopbackPeer::StopListening() {
    HangUp();
    CloseIfOpen(sockets_->listening);
}

#ifdef _WIN32
std::int32_t ConnectionRefusedNumber() { return WSAECONNREFUSED; }

double ThreadCpuSeconds() {
    FILETIME created, exited, kernel, user;
    GetThreadTimes(GetCurrentThread(), &created, &exited, &kernel, &user);
    auto seconds = [](const FILETIME& t) {
        return ((static_cast<std::uint64_t>(t.dwHighDateTime) << 32) | t.dwLowDateTime) / 1e7;
    };
    return seconds(kernel) + seconds(user);
}
#else
std::int32_t ConnectionRefusedNumber() { return ECONNREFUSED; }

double ThreadCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}
#endif

}  // namespace corvid::serial
