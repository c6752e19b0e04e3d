#include "service/metrics.h"

#include <algorithm>
#include <charconv>

namespace corvid::service {
namespace {

std::string Number(double value) {
    char text[32];
    auto end = std::to_chars(text, text + sizeof text, value).ptr;
    return std::string(text, end);
}

// Label values are quoted: backslash, double quote and newline are escaped.
std::string Label(std::string_view value) {
    std::string quoted = "\"";
    for (char c : value) {
        if (c == '\\' || c == '"') quoted += '\\';
        quoted += c == '\n' ? std::string("\\n") : std::string(1, c);
    }
    return quoted + '"';
}

void Family(std::string& out, std::string_view name, std::string_view type, std::string_view help) {
    out.append("# HELP ").append(name).append(" ").append(help).append("\n");
    out.append("# TYPE ").append(name).append(" ").append(type).append("\n");
}

void Sample(std::string& out, std::string_view name, const std::string& labels,
            const std::string& value) {
    out.append(name);
    if (!labels.empty()) out.append("{").append(labels).append("}");
    out.append(" ").append(value).append("\n");
}

}  // namespace

void Metrics::ObserveExchange(double seconds) {
    std::lock_guard lock(mutex_);
    auto bucket = std::lower_bound(bucketBounds_.begin(), bucketBounds_.end(), seconds);
    if (bucket != bucketBounds_.end()) ++bucketCounts_[bucket - bucketBounds_.begin()];
    ++exchanges_;
    exchangeSeconds_ += seconds;
}

void Metrics::CountLineFault(std::string_view printer, std::string_view kind) {
    std::lock_guard lock(mutex_);
    ++faults_[{std::string(printer), std::string(kind)}];
}

std::string Metrics::Render(const std::map<JobState, int>& jobsByState,
                            const std::vector<PrinterGauge>& printers) const {
    std::string out;
    Family(out, "corvid_jobs", "gauge", "Jobs in the journal by state.");
    for (auto state : {JobState::kQueued, JobState::kPrinting, JobState::kDone, JobState::kFailed,
                       JobState::kCancelled, JobState::kAttention}) {
        auto found = jobsByState.find(state);
        int count = found == jobsByState.end() ? 0 : found->second;
        Sample(out, "corvid_jobs", "state=" + Label(NameOf(state)), std::to_string(count));
    }
    Family(out, "corvid_queue_length", "gauge", "Jobs queued or printing, per printer.");
    for (const auto& p : printers)
        Sample(out, "corvid_queue_length", "printer=" + Label(p.printer), std::to_string(p.queue));
    Family(out, "corvid_printer_online", "gauge", "1 when the printer answers, else 0.");
    for (const auto& p : printers)
        Sample(out, "corvid_printer_online", "printer=" + Label(p.printer), p.online ? "1" : "0");

    std::lock_guard lock(mutex_);
    Family(out, "corvid_exchange_seconds", "histogram",
           "Time of one exchange with a printer (a block or a status query).");
    long long cumulative = 0;
    for (std::size_t i = 0; i < bucketBounds_.size(); ++i) {
        cumulative += bucketCounts_[i];
        Sample(out, "corvid_exchange_seconds_bucket", "le=" + Label(Number(bucketBounds_[i])),
               std::to_string(cumulative));
    }
    Sample(out, "corvid_exchange_seconds_bucket", "le=\"+Inf\"", std::to_string(exchanges_));
    Sample(out, "corvid_exchange_seconds_sum", "", Number(exchangeSeconds_));
    Sample(out, "corvid_exchange_seconds_count", "", std::to_string(exchanges_));
    Family(out, "corvid_line_faults_total", "counter",
           "Replies lost or unclear, per printer and kind.");
    for (const auto& [where, count] : faults_)
        Sample(out, "corvid_line_faults_total",
               "printer=" + Label(where.first) + ",kind=" + Label(where.second),
               std::to_string(count));
    return out;
}

}  // namespace corvid::service
