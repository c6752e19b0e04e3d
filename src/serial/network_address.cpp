#include "serial/network_address.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace corvid::serial {
namespace {

constexpr std::string_view kRawScheme = "tcp://";
constexpr std::string_view kComPortScheme = "rfc2217://";

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), text.begin(), [](char a, char b) {
               return std::tolower(static_cast<unsigned char>(a)) ==
                      std::tolower(static_cast<unsigned char>(b));
           });
}

std::optional<std::uint16_t> PortNumber(std::string_view digits) {
    unsigned value = 0;
    const char* end = digits.data() + digits.size();
    auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (digits.empty() || error != std::errc() || stop != end || value == 0 || value > 65535) {
        return std::nullopt;
    }
    return static_cast<std::uint16_t>(value);
}

bool PlainHost(std::string_view host) {
    return !host.empty() && host.find_first_of("/[]@ \t") == std::string_view::npos;
}

}  // namespace

bool IsNetworkDevice(std::string_view device) {
    return StartsWithNoCase(device, kRawScheme) || StartsWithNoCase(device, kComPortScheme);
}

std::optional<NetworkAddress> ParseNetworkAddress(std::string_view device) {
    NetworkAddress address;
    std::string_view rest;
    if (StartsWithNoCase(device, kRawScheme)) {
        rest = device.substr(kRawScheme.size());
    } else if (StartsWithNoCase(device, kComPortScheme)) {
        address.protocol = NetworkAddress::Protocol::kTelnetComPort;
        rest = device.substr(kComPortScheme.size());
    } else {
        return std::nullopt;
    }
    std::string_view host;
    std::string_view port;
    if (!rest.empty() && rest.front() == '[') {
        const std::size_t close = rest.find(']');
        if (close == std::string_view::npos || close + 1 >= rest.size() || rest[close + 1] != ':') {
            return std::nullopt;
        }
        host = rest.substr(1, close - 1);
        port = rest.substr(close + 2);
        if (host.empty() || host.find_first_not_of("0123456789abcdefABCDEF:.") != host.npos) {
            return std::nullopt;
        }
    } else {
        const std::size_t colon = rest.rfind(':');
        if (colon == std::string_view::npos) return std::nullopt;
        host = rest.substr(0, colon);
        port = rest.substr(colon + 1);
        if (!PlainHost(host) || host.find(':') != std::string_view::npos) return std::nullopt;
    }
    auto number = PortNumber(port);
    if (!number) return std::nullopt;
    address.host = std::string(host);
    address.port = *number;
    return address;
}

}  // namespace corvid::serial
