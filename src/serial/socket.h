// A connected TCP stream to a serial device server, one small interface over each
// platform's sockets. Only the waits block; sends and receives take what is there.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "serial/serial_device.h"

namespace corvid::serial {

// Network failures as this platform numbers and words them.
enum class NetworkProblem { kInvalidArgument, kConnectionLost, kTimedOut, kProtocolRefused };
SystemFailure NetworkFailure(std::string call, NetworkProblem problem);

// Failures leave the call empty: the device names it as the serial layer would.
class Socket {
  public:
    virtual ~Socket() = default;
    // Sends what the system takes at once; `sent` is 0 while its queue is full.
    virtual MaybeFailure Send(std::string_view data, std::size_t& sent) = 0;
    // Appends what has arrived, without waiting. Fails once the connection is gone (closed
    // by the peer or broken), after appending what came before that.
    virtual MaybeFailure Receive(std::string& data) = 0;
    // Blocks until a receive has something to tell (bytes, or the end), or the time passes.
    virtual bool WaitReadable(std::chrono::milliseconds timeout) = 0;
    // Blocks until a send can take bytes again, or the time passes.
    virtual bool WaitWritable(std::chrono::milliseconds timeout) = 0;
    virtual MaybeFailure Close() = 0;
};

// Connects to `host`:`port`, trying each address of the name within `timeout` in all
// (looking the name up is the system's business and is not bounded by it).
std::unique_ptr<Socket> ConnectSocket(const std::string& host, std::uint16_t port,
                                      std::chrono::milliseconds timeout, SystemFailure& failure);

}  // namespace corvid::serial
