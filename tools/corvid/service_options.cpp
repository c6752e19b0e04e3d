#include "corvid/service_options.h"

#include <algorithm>
#include <cctype>
#include <regex>

namespace corvid::tool {

namespace {

[[noreturn]] void Refuse(const std::string& what) { throw std::invalid_argument(what); }

// 1 to 65535, digits only.
std::optional<std::uint16_t> PortNumber(const std::string& text) {
    if (text.empty() || text.size() > 5 ||
        !std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c); }))
        return std::nullopt;
    const long number = std::stol(text);
    if (number < 1 || number > 65535) return std::nullopt;
    return static_cast<std::uint16_t>(number);
}

bool IsNameCharacter(unsigned char c) { return std::isalnum(c) || c == '-' || c == '_'; }

}  // namespace

NamedPrinter ParseNamedPrinter(const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) Refuse("expected NAME=PORT");
    NamedPrinter printer;
    printer.name = text.substr(0, equals);
    printer.portText = text.substr(equals + 1);
    if (printer.name.empty() ||
        !std::all_of(printer.name.begin(), printer.name.end(), IsNameCharacter))
        Refuse("a printer's name is letters, digits, - and _");
    if (printer.portText.empty()) Refuse("expected a port after '=' (COM5, 5, /dev/ttyUSB0)");
    try {
        printer.port = ParsePortChoice(printer.portText);
    } catch (const std::invalid_argument& e) {
        // The port's own complaint, without the "--port TEXT: " it starts with.
        const std::string why = e.what();
        const std::size_t colon = why.find(": ");
        Refuse(colon == std::string::npos ? why : why.substr(colon + 2));
    }
    return printer;
}

void ParseListen(const std::string& text, ServeOptions& options) {
    const std::size_t colon = text.rfind(':');
    std::string address = colon == std::string::npos ? std::string() : text.substr(0, colon);
    // Port 0 lets the system pick a free port; the service prints the one it got.
    const std::string portText = colon == std::string::npos ? "" : text.substr(colon + 1);
    const auto port = portText == "0" ? std::optional<std::uint16_t>(0) : PortNumber(portText);
    if (address.size() > 2 && address.front() == '[' && address.back() == ']')
        address = address.substr(1, address.size() - 2);
    if (address.empty() || !port || address.find_first_of("[]/ ") != std::string::npos)
        Refuse("expected ADDRESS:PORT (port 0 to 65535, 0 for any free one)");
    options.listenAddress = address;
    options.listenPort = *port;
}

void CheckOrigin(const std::string& text) {
    static const std::regex origin(R"(https?://[A-Za-z0-9.\-\[\]:]+)");
    if (!std::regex_match(text, origin))
        Refuse("expected an origin written scheme://host[:port], with nothing after");
}

void ParseServiceUrl(const std::string& text, ServiceTarget& target) {
    static const std::regex url(R"(http://([A-Za-z0-9.\-]+|\[[0-9A-Fa-f:.]+\])(:([0-9]+))?/?)");
    std::smatch match;
    if (!std::regex_match(text, match, url)) Refuse("expected http://HOST:PORT");
    std::string host = match[1].str();
    if (host.front() == '[') host = host.substr(1, host.size() - 2);
    std::uint16_t port = 80;
    if (match[3].matched) {
        const auto number = PortNumber(match[3].str());
        if (!number) Refuse("port numbers run from 1 to 65535");
        port = *number;
    }
    target.host = host;
    target.port = port;
}

void CheckKey(const std::string& text) {
    const bool printable = std::all_of(text.begin(), text.end(),
                                       [](unsigned char c) { return c >= 0x20 && c < 0x7F; });
    if (text.empty() || text.size() > 128 || !printable)
        Refuse("expected 1 to 128 printable ASCII characters");
}

void CheckJobState(const std::string& text) {
    static const char* const kStates[] = {"queued", "printing",  "done",
                                          "failed", "cancelled", "attention"};
    for (const char* state : kStates) {
        if (text == state) return;
    }
    Refuse("expected queued, printing, done, failed, cancelled or attention");
}

void CheckIsoTime(const std::string& text) {
    static const std::regex iso(
        R"(\d{4}-\d{2}-\d{2}(T\d{2}:\d{2}(:\d{2}(\.\d{1,9})?)?(Z|[+-]\d{2}:\d{2})?)?)");
    if (!std::regex_match(text, iso))
        Refuse("expected an ISO 8601 date or time (2024-03-15T10:30:00Z)");
}

}  // namespace corvid::tool
