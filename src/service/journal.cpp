#include "service/journal.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <system_error>

#include "service/journal_database.h"
#include "service/journal_sqlite.h"
#include "service/journal_time.h"

namespace corvid::service {

namespace {

using sqlite::Statement;

constexpr std::array<std::string_view, 6> kJobStateNames = {"queued", "printing",  "done",
                                                            "failed", "cancelled", "attention"};
constexpr std::array<std::string_view, 3> kStepStateNames = {"pending", "sent", "confirmed"};

constexpr const char* kSchema = R"sql(
CREATE TABLE IF NOT EXISTS jobs (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    key TEXT NOT NULL UNIQUE,
    printer TEXT NOT NULL,
    type TEXT NOT NULL,
    body TEXT NOT NULL,
    state TEXT NOT NULL,
    created TEXT NOT NULL,
    finished TEXT NOT NULL DEFAULT '',
    document_number INTEGER,
    error_code INTEGER,
    error_description TEXT,
    error_status TEXT,
    evidence TEXT NOT NULL DEFAULT '',
    baseline TEXT NOT NULL DEFAULT '');
CREATE INDEX IF NOT EXISTS jobs_by_printer_state ON jobs (printer, state);
CREATE INDEX IF NOT EXISTS jobs_by_created ON jobs (created);
CREATE TABLE IF NOT EXISTS steps (
    job INTEGER NOT NULL REFERENCES jobs (id) ON DELETE CASCADE,
    seq INTEGER NOT NULL,
    what TEXT NOT NULL,
    kind TEXT NOT NULL,
    command BLOB NOT NULL,
    state TEXT NOT NULL,
    learnt TEXT NOT NULL DEFAULT '',
    PRIMARY KEY (job, seq));
CREATE TABLE IF NOT EXISTS tokens (
    name TEXT PRIMARY KEY,
    hash TEXT NOT NULL,
    created TEXT NOT NULL);
CREATE INDEX IF NOT EXISTS tokens_by_hash ON tokens (hash);
CREATE TABLE IF NOT EXISTS pairings (
    hash TEXT PRIMARY KEY,
    name TEXT NOT NULL,
    expires TEXT NOT NULL);
CREATE TABLE IF NOT EXISTS pairing_guesses (wrong INTEGER NOT NULL);
INSERT INTO pairing_guesses (wrong) SELECT 0 WHERE NOT EXISTS (SELECT 1 FROM pairing_guesses);
)sql";

constexpr const char* kJobColumns =
    "id, key, printer, type, body, state, created, finished, document_number, error_code, "
    "error_description, error_status, evidence, baseline";

StepState StepStateNamed(std::string_view name) {
    for (std::size_t i = 0; i < kStepStateNames.size(); ++i) {
        if (kStepStateNames[i] == name) return static_cast<StepState>(i);
    }
    throw JournalError("journal: unknown step state \"" + std::string(name) + "\"");
}

JobState StoredJobState(const std::string& name) {
    if (auto state = JobStateNamed(name)) return *state;
    throw JournalError("journal: unknown job state \"" + name + "\"");
}

// A row selected with kJobColumns, without its steps.
JobRecord JobFromRow(const Statement& row) {
    JobRecord job;
    job.id = row.Integer(0);
    job.key = row.Text(1);
    job.printer = row.Text(2);
    job.type = row.Text(3);
    job.body = row.Text(4);
    job.state = StoredJobState(row.Text(5));
    job.created = row.Text(6);
    job.finished = row.Text(7);
    job.documentNumber = row.OptionalInteger(8);
    if (!row.IsNull(9)) {
        job.error = JobError{static_cast<std::int32_t>(row.Integer(9)), row.Text(10), row.Text(11)};
    }
    job.evidence = row.Text(12);
    job.baseline = row.Text(13);
    return job;
}

}  // namespace

std::string_view NameOf(JobState state) {
    return kJobStateNames.at(static_cast<std::size_t>(state));
}

std::optional<JobState> JobStateNamed(std::string_view name) {
    for (std::size_t i = 0; i < kJobStateNames.size(); ++i) {
        if (kJobStateNames[i] == name) return static_cast<JobState>(i);
    }
    return std::nullopt;
}

std::string_view NameOf(StepState state) {
    return kStepStateNames.at(static_cast<std::size_t>(state));
}

std::string JournalNow() {
    return UtcTimestamp(
        std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now()));
}

Journal::Database::Database(const std::filesystem::path& file) : connection(file) {
    // WAL lets readers go on while a step is written; FULL syncs the log on every
    // commit, so a change that returned is on disk.
    connection.Execute("PRAGMA busy_timeout = 5000");
    // Switching to WAL takes the file for itself and does not wait for a busy one; a
    // journal already in WAL (every one but a new file) is left as it is, so that
    // `corvid token` beside a running service never fails on it.
    if (!InWalMode()) connection.Execute("PRAGMA journal_mode = WAL");
    connection.Execute("PRAGMA synchronous = FULL");
    connection.Execute("PRAGMA foreign_keys = ON");
    connection.Execute(kSchema);
}

bool Journal::Database::InWalMode() {
    sqlite::Statement mode(connection, "PRAGMA journal_mode");
    return mode.Step() && mode.Text(0) == "wal";
}

std::optional<JobRecord> Journal::Database::FindLocked(std::int64_t id) {
    Statement select(connection, std::string("SELECT ") + kJobColumns + " FROM jobs WHERE id = ?1");
    select.Bind(1, id);
    if (!select.Step()) return std::nullopt;
    JobRecord job = JobFromRow(select);
    job.steps = StepsOf(id);
    return job;
}

std::optional<JobRecord> Journal::Database::FindByKeyLocked(const std::string& key) {
    Statement select(connection, "SELECT id FROM jobs WHERE key = ?1");
    select.Bind(1, key);
    if (!select.Step()) return std::nullopt;
    return FindLocked(select.Integer(0));
}

std::vector<StepRecord> Journal::Database::StepsOf(std::int64_t id) {
    Statement select(connection,
                     "SELECT seq, what, kind, command, state, learnt FROM steps WHERE job = ?1 "
                     "ORDER BY seq");
    select.Bind(1, id);
    std::vector<StepRecord> steps;
    while (select.Step()) {
        steps.push_back({static_cast<int>(select.Integer(0)), select.Text(1), select.Text(2),
                         select.Text(3), StepStateNamed(select.Text(4)), select.Text(5)});
    }
    return steps;
}

void Journal::Database::RequireChange(std::int64_t id, const char* doing) {
    if (connection.Changes() == 0) {
        throw JournalError(std::string("journal: ") + doing + ": no job " + std::to_string(id));
    }
}

Journal::Journal(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        throw JournalError("journal: cannot create " + folder.string() + ": " + error.message());
    }
    db_ = std::make_unique<Database>(folder / "journal.db");
}

Journal::~Journal() = default;

Admission Journal::Admit(const NewJob& job) {
    std::lock_guard lock(db_->mutex);
    sqlite::Transaction transaction(db_->connection);
    if (auto known = db_->FindByKeyLocked(job.key)) {
        const bool same =
            known->printer == job.printer && known->type == job.type && known->body == job.body;
        return {same ? Admission::Outcome::kSame : Admission::Outcome::kConflict, *known};
    }
    Statement insert(db_->connection,
                     "INSERT INTO jobs (key, printer, type, body, state, created) "
                     "VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
    insert.Bind(1, job.key).Bind(2, job.printer).Bind(3, job.type).Bind(4, job.body);
    insert.Bind(5, NameOf(JobState::kQueued)).Bind(6, JournalNow()).Run();
    const std::int64_t id = db_->connection.LastInsertId();
    transaction.Commit();
    return {Admission::Outcome::kCreated, *db_->FindLocked(id)};
}

std::optional<JobRecord> Journal::Find(std::int64_t id) {
    std::lock_guard lock(db_->mutex);
    return db_->FindLocked(id);
}

std::vector<JobRecord> Journal::List(const JobQuery& query) {
    std::optional<std::string> since;
    if (query.since) {
        since = NormalizedUtcTime(*query.since);
        if (!since) throw JournalError("journal: not an ISO 8601 time: \"" + *query.since + "\"");
    }
    std::lock_guard lock(db_->mutex);
    // An absent filter is a NULL parameter, which lets every row through.
    Statement select(db_->connection,
                     std::string("SELECT ") + kJobColumns +
                         " FROM jobs WHERE (?1 IS NULL OR created >= ?1)"
                         " AND (?2 IS NULL OR state = ?2) AND (?3 IS NULL OR printer = ?3)"
                         " AND (?4 IS NULL OR id < ?4) ORDER BY id DESC LIMIT ?5");
    since ? select.Bind(1, *since) : select.BindNull(1);
    query.state ? select.Bind(2, NameOf(*query.state)) : select.BindNull(2);
    query.printer ? select.Bind(3, *query.printer) : select.BindNull(3);
    select.Bind(4, query.before);
    select.Bind(5, std::int64_t{std::clamp(query.limit, 1, 1000)});
    std::vector<JobRecord> jobs;
    while (select.Step()) jobs.push_back(JobFromRow(select));
    for (JobRecord& job : jobs) job.steps = db_->StepsOf(job.id);
    return jobs;
}

std::vector<std::int64_t> Journal::Unfinished(const std::string& printer) {
    std::lock_guard lock(db_->mutex);
    Statement select(db_->connection,
                     "SELECT id FROM jobs WHERE printer = ?1 AND state IN (?2, ?3) ORDER BY id");
    select.Bind(1, printer).Bind(2, NameOf(JobState::kQueued)).Bind(3, NameOf(JobState::kPrinting));
    std::vector<std::int64_t> ids;
    while (select.Step()) ids.push_back(select.Integer(0));
    return ids;
}

void Journal::SetState(std::int64_t id, JobState state) {
    std::lock_guard lock(db_->mutex);
    Statement update(db_->connection, "UPDATE jobs SET state = ?2 WHERE id = ?1");
    update.Bind(1, id).Bind(2, NameOf(state)).Run();
    db_->RequireChange(id, "SetState");
}

void Journal::SetBaseline(std::int64_t id, const std::string& baseline) {
    std::lock_guard lock(db_->mutex);
    Statement update(db_->connection, "UPDATE jobs SET baseline = ?2 WHERE id = ?1");
    update.Bind(1, id).Bind(2, baseline).Run();
    db_->RequireChange(id, "SetBaseline");
}

void Journal::SetSteps(std::int64_t id, const std::vector<StepRecord>& steps) {
    std::lock_guard lock(db_->mutex);
    sqlite::Transaction transaction(db_->connection);
    Statement(db_->connection, "DELETE FROM steps WHERE job = ?1").Bind(1, id).Run();
    for (const StepRecord& step : steps) {
        Statement insert(db_->connection,
                         "INSERT INTO steps (job, seq, what, kind, command, state, learnt) "
                         "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7)");
        insert.Bind(1, id).Bind(2, std::int64_t{step.seq}).Bind(3, step.what).Bind(4, step.kind);
        insert.BindBlob(5, step.command).Bind(6, NameOf(step.state)).Bind(7, step.learnt).Run();
    }
    transaction.Commit();
}

void Journal::SetStepState(std::int64_t id, int seq, StepState state, const std::string& learnt) {
    std::lock_guard lock(db_->mutex);
    Statement update(db_->connection,
                     "UPDATE steps SET state = ?3, learnt = ?4 WHERE job = ?1 AND seq = ?2");
    update.Bind(1, id).Bind(2, std::int64_t{seq}).Bind(3, NameOf(state)).Bind(4, learnt).Run();
    if (db_->connection.Changes() == 0) {
        throw JournalError("journal: SetStepState: job " + std::to_string(id) + " has no step " +
                           std::to_string(seq));
    }
}

void Journal::Finish(std::int64_t id, JobState state, std::optional<std::int64_t> documentNumber,
                     const std::optional<JobError>& error, const std::string& evidence) {
    std::lock_guard lock(db_->mutex);
    Statement update(db_->connection,
                     "UPDATE jobs SET state = ?2, finished = ?3, document_number = ?4, "
                     "error_code = ?5, error_description = ?6, error_status = ?7, evidence = ?8 "
                     "WHERE id = ?1");
    update.Bind(1, id).Bind(2, NameOf(state));
    update.Bind(3, state == JobState::kAttention ? std::string() : JournalNow());
    update.Bind(4, documentNumber);
    if (error) {
        update.Bind(5, std::int64_t{error->pfError}).Bind(6, error->description);
        update.Bind(7, error->status);
    } else {
        update.BindNull(5).BindNull(6).BindNull(7);
    }
    update.Bind(8, evidence).Run();
    db_->RequireChange(id, "Finish");
}

std::map<JobState, int> Journal::CountByState() {
    std::map<JobState, int> counts;
    for (std::size_t i = 0; i < kJobStateNames.size(); ++i) counts[static_cast<JobState>(i)] = 0;
    std::lock_guard lock(db_->mutex);
    Statement select(db_->connection, "SELECT state, COUNT(*) FROM jobs GROUP BY state");
    while (select.Step()) {
        counts[StoredJobState(select.Text(0))] = static_cast<int>(select.Integer(1));
    }
    return counts;
}

}  // namespace corvid::service
