#include "service/journal_sqlite.h"

#include <sqlite3.h>

namespace corvid::service::sqlite {

namespace {

[[noreturn]] void Fail(sqlite3* db, const std::string& doing) {
    throw JournalError("journal: " + doing + ": " + (db ? sqlite3_errmsg(db) : "out of memory"));
}

}  // namespace

void Connection::Closer::operator()(sqlite3* db) const { sqlite3_close_v2(db); }

Connection::Connection(const std::filesystem::path& file) {
    const std::u8string name = file.u8string();
    sqlite3* db = nullptr;
    const int result = sqlite3_open_v2(reinterpret_cast<const char*>(name.c_str()), &db,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    db_.reset(db);
    if (result != SQLITE_OK) Fail(db, "cannot open " + file.string());
    sqlite3_extended_result_codes(db, 1);
}

void Connection::Execute(const char* sql) {
    if (sqlite3_exec(db_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        Fail(db_.get(), sql);
    }
}

std::int64_t Connection::LastInsertId() const { return sqlite3_last_insert_rowid(db_.get()); }

int Connection::Changes() const { return sqlite3_changes(db_.get()); }

Statement::Statement(Connection& connection, std::string_view sql) : connection_(connection) {
    if (sqlite3_prepare_v2(connection.handle(), sql.data(), static_cast<int>(sql.size()),
                           &statement_, nullptr) != SQLITE_OK) {
        Fail(connection.handle(), "cannot prepare " + std::string(sql));
    }
}

Statement::~Statement() { sqlite3_finalize(statement_); }

Statement& Statement::Bind(int index, std::string_view text) {
    if (sqlite3_bind_text(statement_, index, text.data(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT) != SQLITE_OK) {
        Fail(connection_.handle(), "bind");
    }
    return *this;
}

Statement& Statement::Bind(int index, std::int64_t number) {
    if (sqlite3_bind_int64(statement_, index, number) != SQLITE_OK) {
        Fail(connection_.handle(), "bind");
    }
    return *this;
}

Statement& Statement::BindBlob(int index, std::string_view bytes) {
    if (sqlite3_bind_blob(statement_, index, bytes.data(), static_cast<int>(bytes.size()),
                          SQLITE_TRANSIENT) != SQLITE_OK) {
        Fail(connection_.handle(), "bind");
    }
    return *this;
}

Statement& Statement::BindNull(int index) {
    if (sqlite3_bind_null(statement_, index) != SQLITE_OK) Fail(connection_.handle(), "bind");
    return *this;
}

Statement& Statement::Bind(int index, const std::optional<std::int64_t>& number) {
    return number ? Bind(index, *number) : BindNull(index);
}

bool Statement::Step() {
    const int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    Fail(connection_.handle(), sqlite3_sql(statement_));
}

void Statement::Run() {
    while (Step()) {
    }
}

std::string Statement::Text(int column) const {
    // Blobs and text alike: the bytes as stored, which may hold any code page.
    const void* bytes = sqlite3_column_blob(statement_, column);
    const int size = sqlite3_column_bytes(statement_, column);
    if (bytes == nullptr) return {};
    return std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

std::int64_t Statement::Integer(int column) const {
    return sqlite3_column_int64(statement_, column);
}

std::optional<std::int64_t> Statement::OptionalInteger(int column) const {
    if (IsNull(column)) return std::nullopt;
    return Integer(column);
}

bool Statement::IsNull(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

Transaction::Transaction(Connection& connection) : connection_(connection) {
    connection_.Execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (!open_) return;
    // A failed rollback leaves SQLite to roll back itself; a destructor must not throw.
    sqlite3_exec(connection_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
    connection_.Execute("COMMIT");
    open_ = false;
}

}  // namespace corvid::service::sqlite
