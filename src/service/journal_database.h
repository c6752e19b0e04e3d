// The journal's connection and the helpers its parts share; seen only by the journal's
// own files.
#pragma once

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "service/journal.h"
#include "service/journal_sqlite.h"

namespace corvid::service {

struct Journal::Database {
    explicit Database(const std::filesystem::path& file);
    bool InWalMode();
    std::optional<JobRecord> FindLocked(std::int64_t id);
    std::optional<JobRecord> FindByKeyLocked(const std::string& key);
    std::vector<StepRecord> StepsOf(std::int64_t id);
    void RequireChange(std::int64_t id, const char* doing);

    std::mutex mutex;
    sqlite::Connection connection;
};

// Now, as the journal writes times.
std::string JournalNow();

}  // namespace corvid::service
