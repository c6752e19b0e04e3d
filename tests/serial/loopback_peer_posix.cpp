#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

#include "serial/loopback_peer.h"

namespace corvid::serial {

struct LoopbackPeer::Sockets {
    int listening = -1;
    int connection = -1;
};

namespace {

void CloseIfOpen(int& fd) {
    if (fd >= 0) close(fd);
    fd = -1;
}

bool Readable(int fd, std::chrono::milliseconds timeout) {
    pollfd wait{fd, POLLIN, 0};
    return poll(&wait, 1, static_cast<int>(timeout.count())) > 0;
}

}  // namespace

LoopbackPeer::LoopbackPeer() : sockets_(std::make_unique<Sockets>()) {
    sockets_->listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (sockets_->listening < 0 ||
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
}

std::string LoopbackPeer::Url(const char* scheme) const {
    return std::string(scheme) + "://127.0.0.1:" + std::to_string(port_);
}

bool LoopbackPeer::Accept(std::chrono::milliseconds timeout) {
    if (!Readable(sockets_->listening, timeout)) return false;
    CloseIfOpen(sockets_->connection);
    sockets_->connection = accept4(sockets_->listening, nullptr, nullptr, SOCK_CLOEXEC);
    return sockets_->connection >= 0;
}

void LoopbackPeer::Send(const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t n =
            send(sockets_->connection, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
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
        const ssize_t n = recv(sockets_->connection, buffer, sizeof buffer, 0);
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

std::int32_t ConnectionRefusedNumber() { return ECONNREFUSED; }

double ThreadCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

}  // namespace corvid::serial
