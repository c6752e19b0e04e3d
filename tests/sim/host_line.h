// The host's end of the simulated serial line for tests: the slave terminal in raw mode,
// read with poll and bounded waits.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace corvid::sim::testing {

using std::chrono::milliseconds;

class HostLine {
  public:
    explicit HostLine(const std::string& path);
    ~HostLine();
    HostLine(const HostLine&) = delete;
    HostLine& operator=(const HostLine&) = delete;

    int fd() const { return fd_; }
    void Send(std::string_view bytes);
    // One read of whatever arrives within `timeout`; empty when nothing did.
    std::string ReadChunk(milliseconds timeout);
    // One whole reply: a lone ACK or NAK, or everything up to the check byte after the
    // first ETX, ETB or EOT that follows an STX. Whatever arrived within `timeout` else.
    std::string ReadReply(milliseconds timeout = milliseconds(2000));

  private:
    int fd_ = -1;
};

}  // namespace corvid::sim::testing
