// What the HTTP and WebSocket API asks of the service: the API checks and decodes
// requests, the desk decides. Job and printer views are JSON objects in the shapes clients
// read:
//   job:     {"id", "key", "printer", "type", "state", "created", "finished",
//             "steps": [{"what", "kind", "state", "learnt"}], "document_number",
//             "error": {"pfError", "DescripcionError", "status"} | null, "evidence"}
//   printer: {"id", "port", "online", "sts1", "sts2", "status_text", "serial", "model",
//             "queue", "paper"}
// Events published on events(): {"event": "job", "job": {...}} on every job state or step
// change, {"event": "printer", "printer": {...}} on a printer's status change.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "jobs/job_request.h"
#include "service/event_hub.h"
#include "service/journal.h"

namespace corvid::service {

struct Submission {
    enum class Outcome { kCreated, kSame, kConflict, kUnknownPrinter, kPrinterNeeded };
    Outcome outcome = Outcome::kCreated;
    nlohmann::json job;  // for kCreated, kSame and kConflict
};

enum class Resolution { kResolved, kUnknownJob, kNotInAttention };

class JobDesk {
  public:
    virtual ~JobDesk() = default;

    virtual Submission Submit(const std::string& key, const jobs::JobRequest& request) = 0;
    virtual std::optional<nlohmann::json> Job(std::int64_t id) = 0;
    // {"jobs": [...newest first], "next": id to pass as `before` | null}
    virtual nlohmann::json Jobs(const JobQuery& query) = 0;
    virtual Resolution Resolve(std::int64_t id, bool done) = 0;
    virtual nlohmann::json Printers() = 0;
    // The same JSON as `corvid --json status`; none for an unknown printer.
    virtual std::optional<nlohmann::json> PrinterStatus(const std::string& printer) = 0;
    // What the printer has printed so far; none unless it is the built-in simulated printer.
    virtual std::optional<std::string> Paper(const std::string& printer) = 0;
    // A new token for a pairing code that is known, unused and fresh ({"token", "name"});
    // none otherwise.
    virtual std::optional<nlohmann::json> Pair(const std::string& code) = 0;
    virtual bool Authorised(std::string_view token) = 0;
    virtual std::string Metrics() = 0;
    virtual EventHub& events() = 0;
};

}  // namespace corvid::service
