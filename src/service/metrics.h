// What /metrics tells, in the Prometheus text format: jobs by state, per printer its queue
// and whether it is online, a histogram of exchange times and the line faults seen by kind.
#pragma once

#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "service/journal.h"

namespace corvid::service {

struct PrinterGauge {
    std::string printer;
    int queue = 0;
    bool online = false;
};

class Metrics {
  public:
    // One exchange with the printer (a block or a status query), start to end.
    void ObserveExchange(double seconds);
    // A reply that was lost or unclear: "no_answer", "unclear", "nak", "power".
    void CountLineFault(std::string_view printer, std::string_view kind);
    std::string Render(const std::map<JobState, int>& jobsByState,
                       const std::vector<PrinterGauge>& printers) const;

  private:
    mutable std::mutex mutex_;
    std::vector<double> bucketBounds_{0.005, 0.01, 0.025, 0.05, 0.1, 0.25, 0.5, 1, 2.5, 5, 10};
    std::vector<long long> bucketCounts_ = std::vector<long long>(11, 0);
    long long exchanges_ = 0;
    double exchangeSeconds_ = 0;
    std::map<std::pair<std::string, std::string>, long long> faults_;
};

}  // namespace corvid::service
