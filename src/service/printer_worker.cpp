#include "service/printer_worker.h"

#include <algorithm>

#include "records/printer_model.h"
#include "service/job_json.h"
#include "session/printer_fiscal.h"
#include "text/windows_1252.h"

namespace corvid::service {

using namespace std::chrono_literals;

namespace {
constexpr auto kIdleProbe = 5s;
}

PrinterWorker::PrinterWorker(PrinterSetup setup, Journal& journal, EventHub& events,
                             Metrics& metrics)
    : setup_(std::move(setup)), journal_(journal), events_(events), metrics_(metrics) {}

PrinterWorker::~PrinterWorker() { Stop(); }

void PrinterWorker::Start() {
    {
        std::lock_guard lock(mutex_);
        for (std::int64_t id : journal_.Unfinished(setup_.name)) queue_.push_back(id);
    }
    thread_ = std::thread([this] { Loop(); });
}

void PrinterWorker::Stop() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_all();
    if (thread_.joinable()) thread_.join();
}

void PrinterWorker::Enqueue(std::int64_t id) {
    {
        std::lock_guard lock(mutex_);
        queue_.push_back(id);
    }
    wake_.notify_all();
    PublishPrinter();
}

bool PrinterWorker::StoppingAfter(std::chrono::milliseconds period) {
    std::unique_lock lock(mutex_);
    return wake_.wait_for(lock, period, [this] { return stopping_; });
}

void PrinterWorker::Loop() {
    while (!OpenSession()) {
        if (StoppingAfter(1s)) return;
    }
    JobRunner runner({*printer_, journal_, setup_.policy, [this](std::int64_t id) { Publish(id); },
                      [this](const char* kind) { metrics_.CountLineFault(setup_.name, kind); },
                      [this](double seconds) { metrics_.ObserveExchange(seconds); },
                      [this] { return AwaitPrinter(); }});
    for (;;) {
        std::optional<std::int64_t> id;
        {
            std::unique_lock lock(mutex_);
            // An idle printer is asked for its status now and then, so that its state,
            // paper and presence are known before the next job.
            wake_.wait_for(lock, kIdleProbe, [this] { return stopping_ || !queue_.empty(); });
            if (stopping_) return;
            if (!queue_.empty()) id = queue_.front();
        }
        std::lock_guard session(sessionMutex_);
        if (!id) {
            Probe();
            continue;
        }
        runner.Run(*id);
        std::lock_guard lock(mutex_);
        if (stopping_) return;
        queue_.pop_front();
    }
}

void PrinterWorker::Probe() {
    printer_->GetStatus();
    const bool answered = printer_->outcome().pfError == session::pfOk;
    NoteStatus(answered);
    if (!answered) Reopen();
}

// A port that went away (an adapter unplugged, a server restarted) is opened afresh, so
// the printer is found again when it comes back.
void PrinterWorker::Reopen() {
    try {
        printer_->Abrir(setup_.portNumber);
    } catch (const std::exception&) {
        // Still gone: the next probe tries again.
    }
}

bool PrinterWorker::OpenSession() {
    std::lock_guard session(sessionMutex_);
    try {
        auto printer = std::make_unique<session::PrinterFiscal>();
        printer->Abrir(setup_.portNumber);
        {
            std::lock_guard lock(mutex_);
            serial_ = printer->SerialPrinter();
            model_ = records::ModelName(printer->tipoPrinter());
            printer_ = std::move(printer);
        }
        Probe();
        return true;
    } catch (const std::exception& error) {
        std::lock_guard lock(mutex_);
        statusText_ = error.what();
        return false;
    }
}

std::optional<PrinterSnapshot> PrinterWorker::AwaitPrinter() {
    for (;;) {
        const auto start = std::chrono::steady_clock::now();
        std::optional<PrinterSnapshot> snapshot = ReadSnapshot(*printer_);
        metrics_.ObserveExchange(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        NoteStatus(snapshot.has_value());
        if (snapshot) return snapshot;
        metrics_.CountLineFault(setup_.name, "no_answer");
        if (StoppingAfter(1s)) return std::nullopt;
        Reopen();
    }
}

void PrinterWorker::NoteStatus(bool online) {
    bool changed;
    {
        std::lock_guard lock(mutex_);
        const int sts1 = printer_->outcome().STS1, sts2 = printer_->outcome().STS2;
        changed = online != online_ || (online && (sts1 != sts1_ || sts2 != sts2_));
        online_ = online;
        if (online) {
            sts1_ = sts1;
            sts2_ = sts2;
            statusText_ =
                text::Utf8FromWindows1252(printer_->explainSTS1() + "; " + printer_->explainSTS2());
        } else {
            statusText_ = "the printer does not answer";
        }
    }
    if (changed) PublishPrinter();
}

void PrinterWorker::Publish(std::int64_t id) {
    if (const std::optional<JobRecord> job = journal_.Find(id)) {
        events_.Publish({{"event", "job"}, {"job", JobJson(*job)}});
    }
}

void PrinterWorker::PublishPrinter() {
    events_.Publish({{"event", "printer"}, {"printer", View()}});
}

nlohmann::json PrinterWorker::View() const {
    std::lock_guard lock(mutex_);
    return {{"id", setup_.name},
            {"port", setup_.port},
            {"online", online_},
            {"sts1", sts1_},
            {"sts2", sts2_},
            {"status_text", statusText_},
            {"serial", serial_},
            {"model", model_},
            {"queue", static_cast<int>(queue_.size())},
            {"paper", static_cast<bool>(setup_.paper)}};
}

PrinterGauge PrinterWorker::Gauge() const {
    std::lock_guard lock(mutex_);
    return {setup_.name, static_cast<int>(queue_.size()), online_};
}

std::optional<nlohmann::json> PrinterWorker::Query(
    const std::function<nlohmann::json(session::PrinterFiscal&)>& query,
    std::chrono::milliseconds patience) {
    std::unique_lock session(sessionMutex_, std::defer_lock);
    if (!session.try_lock_for(patience) || !printer_) return std::nullopt;
    return query(*printer_);
}

}  // namespace corvid::service
