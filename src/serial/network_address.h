// A port setting may name a serial device server instead of a device: "tcp://host:port"
// carries the printer's bytes as they are, "rfc2217://host:port" speaks Telnet with the
// com-port option, so line settings and modem lines reach the server's port too.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvid::serial {

struct NetworkAddress {
    enum class Protocol { kRawTcp, kTelnetComPort };
    Protocol protocol = Protocol::kRawTcp;
    std::string host;  // a name or an address, IPv6 without its brackets
    std::uint16_t port = 0;
};

// Whether `device` names a server at all (by its scheme, in any case), well formed or not.
bool IsNetworkDevice(std::string_view device);

// The server `device` names; nullopt unless it is "scheme://host:port" with a port of 1 to
// 65535 and nothing after it. An IPv6 host goes in brackets: "tcp://[::1]:4001".
std::optional<NetworkAddress> ParseNetworkAddress(std::string_view device);

}  // namespace corvid::serial
