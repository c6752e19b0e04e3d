#include "service/print_service.h"

#include "service/job_json.h"
#include "service/tokens.h"

namespace corvid::service {

using namespace std::chrono_literals;

PrintService::PrintService(const std::filesystem::path& dataFolder,
                           std::vector<PrinterSetup> printers, StatusDescriber describeStatus)
    : journal_(dataFolder), describeStatus_(std::move(describeStatus)) {
    for (PrinterSetup& setup : printers) {
        const std::string name = setup.name;
        workers_[name] =
            std::make_unique<PrinterWorker>(std::move(setup), journal_, events_, metrics_);
    }
}

PrintService::~PrintService() { Stop(); }

void PrintService::Start() {
    for (auto& [name, worker] : workers_) worker->Start();
}

void PrintService::Stop() {
    for (auto& [name, worker] : workers_) worker->Stop();
}

PrinterWorker* PrintService::WorkerOf(const std::string& printer) {
    const auto found = workers_.find(printer);
    return found == workers_.end() ? nullptr : found->second.get();
}

Submission PrintService::Submit(const std::string& key, const jobs::JobRequest& request) {
    std::string printer;
    if (request.printer) {
        printer = *request.printer;
    } else if (workers_.size() == 1) {
        printer = workers_.begin()->first;
    } else {
        return {Submission::Outcome::kPrinterNeeded, nullptr};
    }
    PrinterWorker* worker = WorkerOf(printer);
    if (worker == nullptr) return {Submission::Outcome::kUnknownPrinter, nullptr};
    const Admission admission =
        journal_.Admit({key, printer, std::string(jobs::NameOf(request.type)), request.canonical});
    switch (admission.outcome) {
        case Admission::Outcome::kCreated:
            events_.Publish({{"event", "job"}, {"job", JobJson(admission.job)}});
            worker->Enqueue(admission.job.id);
            return {Submission::Outcome::kCreated, JobJson(admission.job)};
        case Admission::Outcome::kSame:
            return {Submission::Outcome::kSame, JobJson(admission.job)};
        case Admission::Outcome::kConflict:
            break;
    }
    return {Submission::Outcome::kConflict, JobJson(admission.job)};
}

std::optional<nlohmann::json> PrintService::Job(std::int64_t id) {
    const std::optional<JobRecord> job = journal_.Find(id);
    if (!job) return std::nullopt;
    return JobJson(*job);
}

nlohmann::json PrintService::Jobs(const JobQuery& query) {
    const std::vector<JobRecord> found = journal_.List(query);
    nlohmann::json jobs = nlohmann::json::array();
    for (const JobRecord& job : found) jobs.push_back(JobJson(job));
    const bool more = static_cast<int>(found.size()) == query.limit && !found.empty();
    return {{"jobs", jobs}, {"next", more ? nlohmann::json(found.back().id) : nullptr}};
}

Resolution PrintService::Resolve(std::int64_t id, bool done) {
    const std::optional<JobRecord> job = journal_.Find(id);
    if (!job) return Resolution::kUnknownJob;
    if (job->state != JobState::kAttention) return Resolution::kNotInAttention;
    journal_.Finish(id, done ? JobState::kDone : JobState::kFailed, job->documentNumber, job->error,
                    job->evidence + "; resolved by a person as " + (done ? "done" : "failed"));
    if (const std::optional<JobRecord> resolved = journal_.Find(id)) {
        events_.Publish({{"event", "job"}, {"job", JobJson(*resolved)}});
    }
    return Resolution::kResolved;
}

nlohmann::json PrintService::Printers() {
    nlohmann::json printers = nlohmann::json::array();
    for (auto& [name, worker] : workers_) printers.push_back(worker->View());
    return printers;
}

std::optional<nlohmann::json> PrintService::PrinterStatus(const std::string& printer) {
    PrinterWorker* worker = WorkerOf(printer);
    if (worker == nullptr) return std::nullopt;
    std::optional<nlohmann::json> status = worker->Query(describeStatus_, 10s);
    if (!status)
        return nlohmann::json{{"printer", printer}, {"busy", true}, {"view", worker->View()}};
    return status;
}

std::optional<std::string> PrintService::Paper(const std::string& printer) {
    PrinterWorker* worker = WorkerOf(printer);
    if (worker == nullptr || !worker->setup().paper) return std::nullopt;
    return worker->setup().paper();
}

std::optional<nlohmann::json> PrintService::Pair(const std::string& code) {
    const std::optional<std::string> name = journal_.ClaimPairing(TokenHash(code));
    if (!name) return std::nullopt;
    const std::string token = NewToken();
    journal_.AddToken(*name, TokenHash(token));
    return nlohmann::json{{"token", token}, {"name", *name}};
}

bool PrintService::Authorised(std::string_view token) {
    return !token.empty() && journal_.HasTokenHash(TokenHash(token));
}

std::string PrintService::Metrics() {
    std::vector<PrinterGauge> gauges;
    for (auto& [name, worker] : workers_) gauges.push_back(worker->Gauge());
    return metrics_.Render(journal_.CountByState(), gauges);
}

}  // namespace corvid::service
