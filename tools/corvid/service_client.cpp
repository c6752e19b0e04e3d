#include "corvid/service_client.h"

#include <cctype>
#include <chrono>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <ostream>
#include <thread>

#include "corvid/document_file.h"
#include "corvid/job_progress.h"
#include "corvid/service_http.h"
#include "jobs/documents.h"
#include "jobs/json_fields.h"

namespace corvid::tool {

namespace {

using nlohmann::json;
using namespace std::chrono_literals;

constexpr int kPostRetries = 5;
constexpr auto kPostRetryPause = 500ms;
constexpr auto kPollPause = 200ms;
// Without an event for this long the job is asked for, in case an event was missed.
constexpr std::chrono::milliseconds kQuietWait = 2000ms;

// A job's id as it goes in a path: the service's ids are numbers.
std::string IdOf(const json& job) {
    const json id = job.is_object() ? job.value("id", json()) : json();
    return id.is_string() ? id.get<std::string>() : id.dump();
}

// Percent-encoding for a query value: an ISO time's '+' must not become a space.
std::string QueryValue(const std::string& text) {
    std::string encoded;
    for (unsigned char c : text) {
        if (std::isalnum(c) || c == '-' || c == '.' || c == '_' || c == '~' || c == ':') {
            encoded += static_cast<char>(c);
        } else {
            char hex[4];
            std::snprintf(hex, sizeof hex, "%%%02X", c);
            encoded += hex;
        }
    }
    return encoded;
}

// The job's JSON; throws NetworkError, or std::runtime_error for an HTTP error.
json GetJob(const ServiceTarget& service, const std::string& id) {
    const HttpReply reply = SendRequest(service, "GET", "/v1/jobs/" + id);
    if (reply.status != 200) throw std::runtime_error(ServiceMessage(reply.status, reply.body));
    return json::parse(reply.body);
}

// Posts the job, again with the same key after a network error: the service prints a
// key at most once.
HttpReply Post(const ServiceTarget& service, const std::string& body, const std::string& key,
               std::ostream& err) {
    for (int attempt = 0;; ++attempt) {
        try {
            return SendRequest(service, "POST", "/v1/jobs", body, key);
        } catch (const NetworkError& e) {
            if (attempt == kPostRetries) throw;
            err << "corvid: " << e.what() << "; posting again with the same key (" << attempt + 1
                << " of " << kPostRetries << ")\n";
            std::this_thread::sleep_for(kPostRetryPause);
        }
    }
}

// Asks for the job every 200 ms until it ends; the service may be restarting meanwhile.
void Poll(const ServiceTarget& service, const std::string& id, JobProgress& progress) {
    while (!progress.exitCode()) {
        std::this_thread::sleep_for(kPollPause);
        try {
            progress.Update(GetJob(service, id));
        } catch (const NetworkError&) {
            // Bounded by --deadline.
        }
    }
}

int Follow(const ServiceTarget& service, const std::string& id, std::ostream& out) {
    JobProgress progress(out);
    try {
        EventStream events(service);
        // Subscribed first, then asked: nothing falls between the two.
        progress.Update(GetJob(service, id));
        while (!progress.exitCode()) {
            const auto message = events.Next(kQuietWait);
            const json event = message ? json::parse(*message, nullptr, false) : json();
            if (!message) {
                progress.Update(GetJob(service, id));
            } else if (event.is_object() && event.value("event", "") == "job" &&
                       event.contains("job") && IdOf(event["job"]) == id) {
                progress.Update(event["job"]);
            }
        }
    } catch (const NetworkError&) {
        Poll(service, id, progress);
    }
    return *progress.exitCode();
}

int PostDocument(const Invocation& inv, std::ostream& out, std::ostream& err) {
    const ServiceTarget& service = *inv.service;
    std::string body;
    try {
        const bool file = inv.command == Command::kSale || inv.command == Command::kCreditNote;
        body = JobBodyOf(inv, file ? ReadDocumentFile(inv.words[0]) : std::string()).dump();
    } catch (const jobs::DocumentError& e) {
        err << "corvid: " << inv.words[0] << ": " << e.what() << "\n";
        return kExitUsage;
    }
    const std::string key = service.key ? *service.key : NewIdempotencyKey();
    out << "Service: " << service.host << ":" << service.port << ", key " << key << "\n";
    const HttpReply reply = Post(service, body, key, err);
    if (reply.status != 200 && reply.status != 202) {
        err << "corvid: the service refused the job: " << ServiceMessage(reply.status, reply.body)
            << "\n";
        return ExitStatusOfHttpError(reply.status);
    }
    const json job = json::parse(reply.body);
    const std::string id = IdOf(job);
    out << "Job " << id << (reply.status == 200 ? " (posted before with this key)" : "")
        << " on printer " << job.value("printer", std::string("?")) << ": "
        << job.value("state", std::string("?")) << "\n";
    return Follow(service, id, out);
}

int ListJobs(const Invocation& inv, std::ostream& out, std::ostream& err) {
    std::string query;
    if (inv.jobsFilter.since) query += "&since=" + QueryValue(*inv.jobsFilter.since);
    if (inv.jobsFilter.state) query += "&state=" + QueryValue(*inv.jobsFilter.state);
    json next;
    do {
        const std::string page = next.is_null() ? "" : "&before=" + next.dump();
        const std::string target = "/v1/jobs?limit=500" + query + page;
        const HttpReply reply = SendRequest(*inv.service, "GET", target);
        if (reply.status != 200) {
            err << "corvid: " << ServiceMessage(reply.status, reply.body) << "\n";
            return ExitStatusOfHttpError(reply.status);
        }
        const json list = json::parse(reply.body);
        for (const json& job : list.value("jobs", json::array())) out << JobListLine(job) << "\n";
        next = list.value("next", json());
    } while (!next.is_null());
    return kExitAccepted;
}

}  // namespace

json JobBodyOf(const Invocation& inv, const std::string& fileText) {
    switch (inv.command) {
        case Command::kSale:
            jobs::ParseSale(fileText);
            return {{"type", "sale"}, {"document", jobs::fields::ParseJson(fileText)}};
        case Command::kCreditNote:
            jobs::ParseCreditNote(fileText);
            return {{"type", "credit-note"}, {"document", jobs::fields::ParseJson(fileText)}};
        case Command::kNonFiscal:
            return {{"type", "nonfiscal"}, {"document", {{"lines", inv.words}}}};
        default:
            return {{"type", inv.reportKind == 'Z' ? "report-z" : "report-x"}};
    }
}

int RunServiceCommand(const Invocation& inv, std::ostream& out, std::ostream& err) {
    try {
        return inv.command == Command::kJobs ? ListJobs(inv, out, err)
                                             : PostDocument(inv, out, err);
    } catch (const std::exception& e) {
        // A network error after the retries, or a reply that is not the service's JSON.
        err << "corvid: service " << inv.service->host << ":" << inv.service->port << ": "
            << e.what() << "\n";
        return kExitFailed;
    }
}

}  // namespace corvid::tool
