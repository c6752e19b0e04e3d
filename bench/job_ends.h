// The end of every job, as the print service announces it on its event stream: a thread
// reads the stream from the moment the object is made, so no end is missed while clients
// are still posting.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>

#include "corvid/service_http.h"

namespace corvid::bench {

struct JobEnd {
    std::string state;  // done, failed, cancelled or attention
    std::optional<std::int64_t> documentNumber;
    std::chrono::steady_clock::time_point seen;
};

class JobEnds {
  public:
    explicit JobEnds(const tool::ServiceTarget& service);
    ~JobEnds();
    JobEnds(const JobEnds&) = delete;
    JobEnds& operator=(const JobEnds&) = delete;

    // The ends of `ids` seen within `limit`; a job missing from the answer did not end.
    std::map<std::int64_t, JobEnd> Await(const std::set<std::int64_t>& ids,
                                         std::chrono::steady_clock::duration limit);

  private:
    void Read();
    void Note(const std::string& message);

    tool::EventStream stream_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::map<std::int64_t, JobEnd> ended_;
    bool stopping_ = false;
    std::thread reader_;
};

}  // namespace corvid::bench
