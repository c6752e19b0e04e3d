// Who may call the service: tokens, kept as hashes, and the short-lived pairing codes that
// give a browser a token of its own.
#include <chrono>

#include "service/journal_database.h"
#include "service/journal_time.h"

namespace corvid::service {
namespace {

using sqlite::Statement;

// Ten wrong codes void every pending one: a guesser gets ten tries in a million.
constexpr int kPairingGuesses = 10;

}  // namespace

void Journal::AddToken(const std::string& name, const std::string& hash) {
    std::lock_guard lock(db_->mutex);
    Statement upsert(db_->connection,
                     "INSERT INTO tokens (name, hash, created) VALUES (?1, ?2, ?3) "
                     "ON CONFLICT (name) DO UPDATE SET hash = excluded.hash, "
                     "created = excluded.created");
    upsert.Bind(1, name).Bind(2, hash).Bind(3, JournalNow()).Run();
}

bool Journal::RemoveToken(const std::string& name) {
    std::lock_guard lock(db_->mutex);
    Statement(db_->connection, "DELETE FROM tokens WHERE name = ?1").Bind(1, name).Run();
    return db_->connection.Changes() > 0;
}

std::vector<TokenInfo> Journal::Tokens() {
    std::lock_guard lock(db_->mutex);
    Statement select(db_->connection, "SELECT name, created FROM tokens ORDER BY name");
    std::vector<TokenInfo> tokens;
    while (select.Step()) tokens.push_back({select.Text(0), select.Text(1)});
    return tokens;
}

bool Journal::HasTokenHash(const std::string& hash) {
    std::lock_guard lock(db_->mutex);
    Statement select(db_->connection, "SELECT 1 FROM tokens WHERE hash = ?1");
    select.Bind(1, hash);
    return select.Step();
}

void Journal::AddPairing(const std::string& codeHash, const std::string& name,
                         std::chrono::seconds validFor) {
    const auto expires =
        std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now() + validFor);
    std::lock_guard lock(db_->mutex);
    Statement(db_->connection, "DELETE FROM pairings WHERE expires < ?1")
        .Bind(1, JournalNow())
        .Run();
    Statement(db_->connection,
              "INSERT OR REPLACE INTO pairings (hash, name, expires) VALUES (?1, ?2, ?3)")
        .Bind(1, codeHash)
        .Bind(2, name)
        .Bind(3, UtcTimestamp(expires))
        .Run();
}

std::optional<std::string> Journal::ClaimPairing(const std::string& codeHash) {
    std::lock_guard lock(db_->mutex);
    sqlite::Transaction transaction(db_->connection);
    Statement select(db_->connection,
                     "SELECT name FROM pairings WHERE hash = ?1 AND expires >= ?2");
    select.Bind(1, codeHash).Bind(2, JournalNow());
    std::optional<std::string> name;
    if (select.Step()) name = select.Text(0);
    if (name) {
        Statement(db_->connection, "DELETE FROM pairings WHERE hash = ?1").Bind(1, codeHash).Run();
    } else {
        Statement(db_->connection, "UPDATE pairing_guesses SET wrong = wrong + 1").Run();
        Statement wrong(db_->connection, "SELECT wrong FROM pairing_guesses");
        if (wrong.Step() && wrong.Integer(0) >= kPairingGuesses) {
            Statement(db_->connection, "DELETE FROM pairings").Run();
            Statement(db_->connection, "UPDATE pairing_guesses SET wrong = 0").Run();
        }
    }
    transaction.Commit();
    return name;
}

}  // namespace corvid::service
