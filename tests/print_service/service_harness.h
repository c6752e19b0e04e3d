// `corvid serve` as a process of its own on a simulated printer, for the tests of the print
// service: started in a folder of its own (journal and settings), killed at will, started
// again on the same journal.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "corvid/service_http.h"

namespace corvid::e2e {

class ServiceProcess {
  public:
    // `folder` gets the journal (folder/data) and the session's settings (short time-outs).
    ServiceProcess(std::string device, std::filesystem::path folder,
                   std::vector<std::string> options = {});
    ~ServiceProcess();
    ServiceProcess(const ServiceProcess&) = delete;
    ServiceProcess& operator=(const ServiceProcess&) = delete;

    void Start();
    // SIGKILL: the service gets no chance to write anything more.
    void Kill();
    const tool::ServiceTarget& target() const { return target_; }

  private:
    std::string device_;
    std::filesystem::path folder_;
    std::vector<std::string> options_;
    tool::ServiceTarget target_;
    pid_t pid_ = -1;
    int output_ = -1;
};

struct Reply {
    int status = 0;
    nlohmann::json body;
};

Reply Post(const tool::ServiceTarget& target, const std::string& key, const nlohmann::json& body);
Reply Get(const tool::ServiceTarget& target, const std::string& path);
// Asks for the job until it ends (done, failed, cancelled, attention) or `limit` passes.
nlohmann::json AwaitEnd(const tool::ServiceTarget& target, std::int64_t id,
                        std::chrono::seconds limit);
// Runs `corvid --service URL --token T ARGS...` as a client of the service; its exit status.
int RunClient(const tool::ServiceTarget& target, const std::vector<std::string>& args);
// The sample sale (customer, four items, a discount, two payments) as a job.
nlohmann::json SampleSaleJob();

}  // namespace corvid::e2e
