// A serial port on a serial device server: the table drives it like a local port, with
// the same waits and time-outs, and a lost connection fails reads and writes as a broken
// device would (the reads once what had arrived before the loss is read).
#pragma once

#include <chrono>
#include <memory>

#include "serial/network_address.h"
#include "serial/serial_device.h"
#include "serial/socket.h"

namespace corvid::serial {

struct NetworkTimings {
    // Connecting, and for the com-port protocol the server's agreement to it.
    std::chrono::milliseconds open{5000};
    // A write may wait this long per byte for the server to take it, as a local port does.
    std::chrono::milliseconds write_per_byte{1000};
    // A settings, line or purge message may wait this long to go out.
    std::chrono::milliseconds control{1000};
};

// Connects to the server; null and `failure` (call "CreateFile") when that fails.
std::unique_ptr<SerialDevice> OpenNetworkDevice(const NetworkAddress& address,
                                                SystemFailure& failure,
                                                const NetworkTimings& timings = {});

// The device over a socket already connected: for the com-port protocol it first agrees
// on it with the server. Null and `failure` (call "CreateFile") when the server refuses.
std::unique_ptr<SerialDevice> StartNetworkDevice(std::unique_ptr<Socket> socket,
                                                 NetworkAddress::Protocol protocol,
                                                 SystemFailure& failure,
                                                 const NetworkTimings& timings = {});

}  // namespace corvid::serial
