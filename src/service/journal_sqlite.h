// A thin layer over SQLite's C API for the journal: a connection that closes itself and
// prepared statements with bound parameters. Every failure throws JournalError with
// SQLite's own message.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "service/journal.h"

struct sqlite3;
struct sqlite3_stmt;

namespace corvid::service::sqlite {

class Connection {
  public:
    explicit Connection(const std::filesystem::path& file);
    // Runs statements that take no parameters and give no rows.
    void Execute(const char* sql);
    std::int64_t LastInsertId() const;
    int Changes() const;
    sqlite3* handle() const { return db_.get(); }

  private:
    struct Closer {
        void operator()(sqlite3* db) const;
    };
    std::unique_ptr<sqlite3, Closer> db_;
};

class Statement {
  public:
    Statement(Connection& connection, std::string_view sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // Parameters are numbered from 1, as in SQL's "?1".
    Statement& Bind(int index, std::string_view text);
    Statement& Bind(int index, std::int64_t number);
    Statement& BindBlob(int index, std::string_view bytes);
    Statement& BindNull(int index);
    Statement& Bind(int index, const std::optional<std::int64_t>& number);

    // True while there is a row to read; false once the statement is done.
    bool Step();
    // Steps a statement that gives no row.
    void Run();

    // Columns are numbered from 0.
    std::string Text(int column) const;
    std::int64_t Integer(int column) const;
    std::optional<std::int64_t> OptionalInteger(int column) const;
    bool IsNull(int column) const;

  private:
    Connection& connection_;
    sqlite3_stmt* statement_ = nullptr;
};

// BEGIN IMMEDIATE now, ROLLBACK when left without Commit().
class Transaction {
  public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

  private:
    Connection& connection_;
    bool open_ = true;
};

}  // namespace corvid::service::sqlite
