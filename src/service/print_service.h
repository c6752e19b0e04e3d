// The print service's core: the journal, one worker per printer, events and metrics. It
// admits jobs (one key, one job), answers for them and for the printers, and is what the
// HTTP API calls.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "service/event_hub.h"
#include "service/job_desk.h"
#include "service/journal.h"
#include "service/metrics.h"
#include "service/printer_worker.h"

namespace corvid::service {

// The printer status JSON, as the tool prints it.
using StatusDescriber = std::function<nlohmann::json(session::PrinterFiscal&)>;

class PrintService : public JobDesk {
  public:
    PrintService(const std::filesystem::path& dataFolder, std::vector<PrinterSetup> printers,
                 StatusDescriber describeStatus);
    ~PrintService() override;

    // Starts the workers: each first takes up the job a stopped service left printing.
    void Start();
    void Stop();

    Submission Submit(const std::string& key, const jobs::JobRequest& request) override;
    std::optional<nlohmann::json> Job(std::int64_t id) override;
    nlohmann::json Jobs(const JobQuery& query) override;
    Resolution Resolve(std::int64_t id, bool done) override;
    nlohmann::json Printers() override;
    std::optional<nlohmann::json> PrinterStatus(const std::string& printer) override;
    std::optional<std::string> Paper(const std::string& printer) override;
    std::optional<nlohmann::json> Pair(const std::string& code) override;
    bool Authorised(std::string_view token) override;
    std::string Metrics() override;
    EventHub& events() override { return events_; }

    Journal& journal() { return journal_; }

  private:
    PrinterWorker* WorkerOf(const std::string& printer);

    Journal journal_;
    EventHub events_;
    service::Metrics metrics_;
    StatusDescriber describeStatus_;
    std::map<std::string, std::unique_ptr<PrinterWorker>> workers_;
};

}  // namespace corvid::service
