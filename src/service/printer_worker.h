// One printer of the service: its session, its queue and the thread that prints the
// queue's jobs one at a time. On start it takes up the job a stopped service left printing
// before any new one; while the printer does not answer it waits, asking again every
// second, and says so to the event hub.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <thread>

#include "service/event_hub.h"
#include "service/job_runner.h"
#include "service/journal.h"
#include "service/metrics.h"

namespace corvid::session {
class PrinterFiscal;
}

namespace corvid::service {

struct PrinterSetup {
    std::string name;
    std::string port;         // as given, for people
    std::int16_t portNumber;  // the COM number the session opens
    OpenDocumentPolicy policy = OpenDocumentPolicy::kComplete;
    // The built-in simulated printer's paper roll so far; empty for a real printer.
    std::function<std::string()> paper;
};

class PrinterWorker {
  public:
    PrinterWorker(PrinterSetup setup, Journal& journal, EventHub& events, Metrics& metrics);
    ~PrinterWorker();
    PrinterWorker(const PrinterWorker&) = delete;
    PrinterWorker& operator=(const PrinterWorker&) = delete;

    // Queues the printer's unfinished jobs from the journal and starts the thread.
    void Start();
    // Finishes the block in progress, then stops; a job in progress stays printing.
    void Stop();
    void Enqueue(std::int64_t id);

    const std::string& name() const { return setup_.name; }
    // {"id", "port", "online", "sts1", "sts2", "status_text", "serial", "model", "queue"}
    nlohmann::json View() const;
    PrinterGauge Gauge() const;
    const PrinterSetup& setup() const { return setup_; }
    // Runs `query` on the printer's session between two jobs (or blocks of a job being
    // taken up); none when the printer is not open or stays busy for `patience`.
    std::optional<nlohmann::json> Query(
        const std::function<nlohmann::json(session::PrinterFiscal&)>& query,
        std::chrono::milliseconds patience);

  private:
    void Loop();
    bool OpenSession();
    // Asks for the status bytes; reopens the port when the printer does not answer.
    void Probe();
    void Reopen();
    std::optional<PrinterSnapshot> AwaitPrinter();
    void NoteStatus(bool online);
    void Publish(std::int64_t id);
    void PublishPrinter();
    // Waits up to `period` unless the service is stopping; true when it is.
    bool StoppingAfter(std::chrono::milliseconds period);

    PrinterSetup setup_;
    Journal& journal_;
    EventHub& events_;
    Metrics& metrics_;

    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<std::int64_t> queue_;
    bool stopping_ = false;
    bool online_ = false;
    int sts1_ = 0, sts2_ = 0;
    std::string statusText_, serial_, model_;

    std::timed_mutex sessionMutex_;
    std::unique_ptr<session::PrinterFiscal> printer_;
    std::thread thread_;
};

}  // namespace corvid::service
