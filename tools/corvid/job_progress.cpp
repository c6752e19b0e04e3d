#include "corvid/job_progress.h"

#include <cstdio>
#include <nlohmann/json.hpp>
#include <ostream>
#include <random>

#include "corvid/command_line.h"

namespace corvid::tool {

namespace {

using nlohmann::json;

// A member as text whatever its JSON type; `absent` for none or null.
std::string TextOf(const json& object, const char* key, const char* absent = "") {
    if (!object.is_object() || !object.contains(key) || object.at(key).is_null()) return absent;
    const json& value = object.at(key);
    return value.is_string() ? value.get<std::string>() : value.dump();
}

constexpr const char* kIndent = "           ";

}  // namespace

void JobProgress::Update(const json& job) {
    if (exitCode_) return;
    const json steps = job.value("steps", json::array());
    while (shown_ < steps.size() && TextOf(steps[shown_], "state") == "confirmed") {
        out_ << "  ok       " << TextOf(steps[shown_], "what") << "\n";
        ++shown_;
    }
    const std::string state = TextOf(job, "state");
    if (state == "done" || state == "failed" || state == "cancelled" || state == "attention")
        ShowEnd(job, state);
}

void JobProgress::ShowEnd(const json& job, const std::string& state) {
    const json steps = job.value("steps", json::array());
    const std::string id = TextOf(job, "id");
    if (state == "done") {
        out_ << "Accepted: " << steps.size() << (steps.size() == 1 ? " step" : " steps") << "; job "
             << id << ", document number " << TextOf(job, "document_number", "none") << ".\n";
        exitCode_ = kExitAccepted;
        return;
    }
    const std::string what = shown_ < steps.size() ? TextOf(steps[shown_], "what") : "";
    if (state == "attention") {
        out_ << "  CHECK    " << what << "\n"
             << kIndent << "the printer cannot tell what happened: " << TextOf(job, "evidence")
             << "\n"
             << "Job " << id << " needs a person: look at the paper, then resolve it as done "
             << "or failed (POST /v1/jobs/" << id << "/resolve).\n";
    } else {
        const json error = job.contains("error") ? job.at("error") : json();
        if (!what.empty())
            out_ << (state == "failed" ? "  FAILED   " : "  CANCELLED ") << what << "\n";
        out_ << kIndent << "printer: " << TextOf(error, "DescripcionError", "(no description)")
             << " (pfError " << TextOf(error, "pfError", "none") << ")\n"
             << kIndent << "status:  " << TextOf(error, "status", "(none read)") << "\n"
             << "Job " << id << " " << state << ".\n";
    }
    exitCode_ = kExitFailed;
}

std::string JobListLine(const json& job) {
    char line[512];
    std::snprintf(line, sizeof line, "%-6s %-24s %-10s %-12s %s %s", TextOf(job, "id").c_str(),
                  TextOf(job, "created").c_str(), TextOf(job, "state").c_str(),
                  TextOf(job, "type").c_str(), TextOf(job, "key").c_str(),
                  TextOf(job, "document_number", "-").c_str());
    return line;
}

std::string ServiceMessage(int status, const std::string& body) {
    const json reply = json::parse(body, nullptr, false);
    const std::string message =
        reply.is_object() && reply.contains("error") ? TextOf(reply.at("error"), "message") : "";
    return (message.empty() ? body : message) + " (HTTP " + std::to_string(status) + ")";
}

int ExitStatusOfHttpError(int status) {
    return status == 400 || status == 409 || status == 413 || status == 415 ? kExitUsage
                                                                            : kExitFailed;
}

std::string NewIdempotencyKey() {
    std::random_device random;
    char key[33];
    for (int i = 0; i < 4; ++i)
        std::snprintf(key + 8 * i, 9, "%08x", static_cast<unsigned>(random()));
    return key;
}

}  // namespace corvid::tool
