// What the tool's print-service commands take: the options of `corvid serve`, the service a
// client talks to, and the journal's filters. Each text is checked here, before anything is
// opened; a mistake throws std::invalid_argument saying why.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "corvid/port_choice.h"
#include "service/open_document_policy.h"

namespace corvid::tool {

inline constexpr const char* kDefaultListenAddress = "127.0.0.1";
inline constexpr std::uint16_t kDefaultListenPort = 8720;

// A printer the service owns: `--printer NAME=PORT`.
struct NamedPrinter {
    std::string name;
    std::string portText;  // as typed
    PortChoice port;
};

using service::OpenDocumentPolicy;

struct ServeOptions {
    std::vector<NamedPrinter> printers;  // none: the built-in simulated printer as "default"
    std::string listenAddress = kDefaultListenAddress;
    std::uint16_t listenPort = kDefaultListenPort;
    // The database's folder, for serve and the token commands; none: the default folder.
    std::optional<std::string> dataFolder;
    std::vector<std::string> allowedOrigins;
    OpenDocumentPolicy onOpenDocument = OpenDocumentPolicy::kComplete;
    bool windowsService = false;  // run by the Windows service manager, logging to the data folder
};

// The service a client talks to: `--service http://HOST:PORT --token T [--key K]`.
struct ServiceTarget {
    std::string host;
    std::uint16_t port = 80;
    std::string token;
    std::optional<std::string> key;  // none: a fresh one for each job
};

// `jobs [--since ISO] [--state S]`.
struct JobsFilter {
    std::optional<std::string> since;
    std::optional<std::string> state;
};

// "NAME=PORT": the name is letters, digits, '-' and '_'; the port what --port takes.
NamedPrinter ParseNamedPrinter(const std::string& text);
// "ADDR:PORT", "[v6addr]:PORT"; into `options`.
void ParseListen(const std::string& text, ServeOptions& options);
// "scheme://host[:port]" with nothing after: a browser sends its origin in that form.
void CheckOrigin(const std::string& text);
// "http://HOST[:PORT]" with at most a "/" after; into `target`.
void ParseServiceUrl(const std::string& text, ServiceTarget& target);
// 1 to 128 printable ASCII characters, as the service takes an idempotency key.
void CheckKey(const std::string& text);
// A job state the journal knows: queued, printing, done, failed, cancelled, attention.
void CheckJobState(const std::string& text);
// An ISO 8601 date, or date and time ("2024-03-15", "2024-03-15T10:30:00Z").
void CheckIsoTime(const std::string& text);

}  // namespace corvid::tool
