// Carries one job through the printer with the journal before the wire: each block is
// recorded as sent before it goes out and as confirmed once the printer took it. Where a
// reply is lost or unclear, or the job was left printing by a stopped service, the
// printer's own state decides what took effect (resume.h); nothing is sent blindly twice.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "service/job_plan.h"
#include "service/journal.h"
#include "service/open_document_policy.h"
#include "service/printer_snapshot.h"
#include "service/resume.h"

namespace corvid::session {
class PrinterFiscal;
}

namespace corvid::service {

struct RunnerContext {
    session::PrinterFiscal& printer;
    Journal& journal;
    OpenDocumentPolicy policy = OpenDocumentPolicy::kComplete;
    std::function<void(std::int64_t id)> jobChanged;
    std::function<void(const char* kind)> lineFault;
    std::function<void(double seconds)> exchangeTimed;
    // Blocks until the printer answers S1 and S2; none once the service is stopping.
    std::function<std::optional<PrinterSnapshot>()> awaitPrinter;
};

class JobRunner {
  public:
    explicit JobRunner(RunnerContext context) : c_(std::move(context)) {}

    // Takes the job to done, failed or attention. Returns with the job still printing only
    // when the service stops meanwhile; the next start takes it up from the printer's state.
    void Run(std::int64_t id);

  private:
    struct Job {
        std::int64_t id = 0;
        JobPlan plan;
        std::vector<StepProgress> progress;
        Counters before;
    };

    // The step to start from, or none when the job was ended here.
    std::optional<std::size_t> Begin(Job& job, const JobRecord& record);
    std::optional<std::size_t> TakeUp(Job& job, const JobRecord& record);
    // Sends from `from` to the end; false when the job was ended or the service stops.
    bool SendFrom(Job& job, std::size_t from);
    // After an unclear reply at step `k`: where to go on from, or none when ended.
    std::optional<std::size_t> Recover(Job& job, std::size_t k);
    std::optional<std::size_t> Apply(Job& job, const Resume& resume, std::size_t sentStep);
    void Close(Job& job);

    void MarkStep(Job& job, std::size_t k, StepState state, const std::string& learnt);
    void Finish(std::int64_t id, JobState state, std::optional<std::int64_t> number,
                const std::optional<JobError>& error, const std::string& evidence);
    JobError PrinterError();
    void CancelOpenDocument();

    RunnerContext c_;
};

}  // namespace corvid::service
