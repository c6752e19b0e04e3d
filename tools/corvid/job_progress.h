// What the tool shows of a job it follows on a print service, from the job's JSON as the
// service sends it ({"id", "state", "steps": [{"what", "state"}], "document_number",
// "error": {"pfError", "DescripcionError", "status"}, "evidence", ...}).
#pragma once

#include <iosfwd>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace corvid::tool {

class JobProgress {
  public:
    explicit JobProgress(std::ostream& out) : out_(out) {}

    // Shows what changed since the last view: a line per newly confirmed step, in order,
    // and the outcome once the job has ended.
    void Update(const nlohmann::json& job);
    // The exit status once the job has ended: 0 done; 1 failed, cancelled or attention.
    std::optional<int> exitCode() const { return exitCode_; }

  private:
    void ShowEnd(const nlohmann::json& job, const std::string& state);

    std::ostream& out_;
    std::size_t shown_ = 0;  // steps shown as confirmed
    std::optional<int> exitCode_;
};

// One line of `corvid jobs`: id, created, state, type, key, document number.
std::string JobListLine(const nlohmann::json& job);

// The service's complaint in an error reply ({"error": {"message"}}), or the reply itself.
std::string ServiceMessage(int status, const std::string& body);
// 2 for a mistake in what was sent (400, 409, 413, 415), else 1.
int ExitStatusOfHttpError(int status);

// A fresh idempotency key: 32 hex digits from the system's random source.
std::string NewIdempotencyKey();

}  // namespace corvid::tool
