#include "bench/job_ends.h"

#include <nlohmann/json.hpp>

namespace corvid::bench {
namespace {

bool Ended(const std::string& state) {
    return state == "done" || state == "failed" || state == "cancelled" || state == "attention";
}

}  // namespace

JobEnds::JobEnds(const tool::ServiceTarget& service)
    : stream_(service), reader_([this] { Read(); }) {}

JobEnds::~JobEnds() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    reader_.join();
}

void JobEnds::Read() {
    for (;;) {
        {
            std::lock_guard lock(mutex_);
            if (stopping_) return;
        }
        try {
            // Bounded, so that a stop is seen within a tenth of a second.
            if (const auto message = stream_.Next(std::chrono::milliseconds(100))) Note(*message);
        } catch (const tool::NetworkError&) {
            return;  // the service has gone: the jobs not seen to end did not end
        }
    }
}

void JobEnds::Note(const std::string& message) {
    const auto seen = std::chrono::steady_clock::now();
    const nlohmann::json event = nlohmann::json::parse(message, nullptr, false);
    if (!event.is_object() || event.value("event", "") != "job") return;
    const nlohmann::json& job = event.at("job");
    const std::string state = job.value("state", "");
    if (!Ended(state)) return;
    JobEnd end{state, std::nullopt, seen};
    if (job.contains("document_number") && job["document_number"].is_number()) {
        end.documentNumber = job["document_number"].get<std::int64_t>();
    }
    {
        std::lock_guard lock(mutex_);
        ended_.emplace(job.at("id").get<std::int64_t>(), end);
    }
    changed_.notify_all();
}

std::map<std::int64_t, JobEnd> JobEnds::Await(const std::set<std::int64_t>& ids,
                                              std::chrono::steady_clock::duration limit) {
    std::unique_lock lock(mutex_);
    const auto allEnded = [&] {
        for (std::int64_t id : ids) {
            if (!ended_.contains(id)) return false;
        }
        return true;
    };
    changed_.wait_for(lock, limit, allEnded);
    std::map<std::int64_t, JobEnd> ends;
    for (std::int64_t id : ids) {
        if (const auto found = ended_.find(id); found != ended_.end()) ends.insert(*found);
    }
    return ends;
}

}  // namespace corvid::bench
