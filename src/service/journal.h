// The service's durable record: every job with its key, body, steps and outcome, and the
// tokens that may call the service. One SQLite database in the data folder, in WAL mode,
// every change committed with a full sync before the call returns: a step counts as sent
// only once the journal says so on disk. Safe to call from several threads.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::service {

enum class JobState { kQueued, kPrinting, kDone, kFailed, kCancelled, kAttention };
enum class StepState { kPending, kSent, kConfirmed };

// "queued", "printing", "done", "failed", "cancelled", "attention".
std::string_view NameOf(JobState state);
std::optional<JobState> JobStateNamed(std::string_view name);
// "pending", "sent", "confirmed".
std::string_view NameOf(StepState state);

struct StepRecord {
    int seq = 0;          // 0-based order in the job
    std::string what;     // for people (UTF-8): "item 2: Café molido 500 g, 1 x 95.00 at 16%"
    std::string kind;     // what the step does to the document ("item", "payment", ...)
    std::string command;  // the block's text, printer code page
    StepState state = StepState::kPending;
    std::string learnt;  // what the printer told about this step (UTF-8), may be empty
};

struct JobError {
    std::int32_t pfError = 0;
    std::string description;  // DescripcionError, UTF-8
    std::string status;       // the status bytes in words, UTF-8
};

struct JobRecord {
    std::int64_t id = 0;
    std::string key;
    std::string printer;
    std::string type;  // "sale", "credit-note", "nonfiscal", "report-x", "report-z"
    std::string body;  // the request as admitted (canonical JSON text)
    JobState state = JobState::kQueued;
    std::string created;   // ISO 8601, UTC ("2026-11-24T10:15:02.123Z")
    std::string finished;  // empty until the job ends
    std::optional<std::int64_t> documentNumber;
    std::optional<JobError> error;
    std::string evidence;  // why a person must decide (attention), or what settled the job
    std::string baseline;  // the worker's notes (JSON text): printer counters before the job
    std::vector<StepRecord> steps;
};

struct NewJob {
    std::string key;
    std::string printer;
    std::string type;
    std::string body;
};

struct Admission {
    enum class Outcome { kCreated, kSame, kConflict };
    Outcome outcome = Outcome::kCreated;
    JobRecord job;  // the new job, or the one the key already had
};

struct JobQuery {
    std::optional<std::string> since;  // ISO 8601; jobs created at or after it
    std::optional<JobState> state;
    std::optional<std::string> printer;
    std::optional<std::int64_t> before;  // paging: only ids below this one
    int limit = 50;
};

struct TokenInfo {
    std::string name;
    std::string created;
};

class JournalError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class Journal {
  public:
    // Opens or creates `folder`/journal.db (the folder too). Throws JournalError.
    explicit Journal(const std::filesystem::path& folder);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    // One transaction: a new key makes a queued job; a known key with the same body gives
    // that job back; with another body, a conflict (the job is still given back).
    Admission Admit(const NewJob& job);
    std::optional<JobRecord> Find(std::int64_t id);
    // Newest first.
    std::vector<JobRecord> List(const JobQuery& query);
    // Ids of the printer's queued and printing jobs, oldest first.
    std::vector<std::int64_t> Unfinished(const std::string& printer);

    void SetState(std::int64_t id, JobState state);
    void SetBaseline(std::int64_t id, const std::string& baseline);
    // Replaces the job's steps (when the job starts).
    void SetSteps(std::int64_t id, const std::vector<StepRecord>& steps);
    void SetStepState(std::int64_t id, int seq, StepState state, const std::string& learnt);
    // Ends the job (done, failed, cancelled, attention) and stamps `finished` unless it is
    // attention.
    void Finish(std::int64_t id, JobState state, std::optional<std::int64_t> documentNumber,
                const std::optional<JobError>& error, const std::string& evidence);
    std::map<JobState, int> CountByState();

    // Tokens, stored as hashes only. AddToken replaces a token of the same name.
    void AddToken(const std::string& name, const std::string& hash);
    bool RemoveToken(const std::string& name);
    std::vector<TokenInfo> Tokens();
    bool HasTokenHash(const std::string& hash);

    // A pairing code (as a hash) that `ClaimPairing` trades once for the name, until it
    // expires.
    void AddPairing(const std::string& codeHash, const std::string& name,
                    std::chrono::seconds validFor);
    // The name, and the code is gone; none for a code unknown, used or expired. Every
    // pending code is voided after ten wrong ones.
    std::optional<std::string> ClaimPairing(const std::string& codeHash);

  private:
    struct Database;
    std::unique_ptr<Database> db_;
};

// The default data folder: $XDG_STATE_HOME/corvid, else ~/.local/state/corvid on Linux;
// %LOCALAPPDATA%\Corvid on Windows.
std::filesystem::path DefaultDataFolder();

}  // namespace corvid::service
