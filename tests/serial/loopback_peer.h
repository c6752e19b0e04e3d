// The server's end of a TCP connection on 127.0.0.1, made by the test itself so the same
// tests run natively and under Wine.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "serial/printer_end.h"

namespace corvid::serial {

class LoopbackPeer : public PrinterEnd {
  public:
    // Listens on a free port.
    LoopbackPeer();
    ~LoopbackPeer() override;
    LoopbackPeer(const LoopbackPeer&) = delete;
    LoopbackPeer& operator=(const LoopbackPeer&) = delete;

    std::string Url() const { return "tcp://127.0.0.1:" + std::to_string(port_); }
    // Takes the next connection; false when none came within `timeout`.
    bool Accept(std::chrono::milliseconds timeout);
    void Send(const std::string& bytes) override;
    std::string Receive(std::size_t expected, std::chrono::milliseconds timeout) override;
    // Closes the accepted connection; the port goes on listening.
    void HangUp() override;
    // Closes the listening socket too: connections to the port are refused from now on.
    void StopListening();

  private:
    struct Sockets;
    std::unique_ptr<Sockets> sockets_;
    std::uint16_t port_ = 0;
};

// What a connect to a port nobody listens on fails with here.
std::int32_t ConnectionRefusedNumber();

}  // namespace corvid::serial
