#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quorvale {

// What SQLite answered to a call that it could not do. Never leaves the registry.
class SqliteError {
 public:
  explicit SqliteError(int code) : code_(code) {}

  // A file that makes no sense, whose tables or format are not those that a statement was made for, or
  // whose rows don't fit together.
  bool IsDamage() const {
    return Primary() == SQLITE_CORRUPT || Primary() == SQLITE_NOTADB || Primary() == SQLITE_ERROR ||
           Primary() == SQLITE_CONSTRAINT;
  }
  bool IsBusy() const { return Primary() == SQLITE_BUSY; }
  // A file that is there, in a place where what belongs beside it can't be made or written.
  bool IsUnwritable() const {
    return Primary() == SQLITE_CANTOPEN || Primary() == SQLITE_READONLY || Primary() == SQLITE_IOERR ||
           Primary() == SQLITE_FULL;
  }

 private:
  int Primary() const { return code_ & 0xFF; }

  int code_;
};

// One execution of a prepared statement. Its end resets the statement, and with it the read transaction.
// Parameters count from 1, columns from 0; what a column gives holds until the next step.
class SqliteQuery {
 public:
  explicit SqliteQuery(sqlite3_stmt* statement) : statement_(statement) {}
  ~SqliteQuery() { sqlite3_reset(statement_); }
  SqliteQuery(const SqliteQuery&) = delete;
  SqliteQuery& operator=(const SqliteQuery&) = delete;

  // Bound text and bytes are not copied: they outlive the query. A text ends at its first NUL.
  SqliteQuery& Bind(int parameter, std::int64_t number);
  SqliteQuery& Bind(int parameter, const std::string& text);
  SqliteQuery& BindBytes(int parameter, std::string_view bytes);

  // True when there is a row to look at. Throws `SqliteError`.
  bool Step();

  bool IsNull(int column) const { return sqlite3_column_type(statement_, column) == SQLITE_NULL; }
  std::int64_t Number(int column) const { return sqlite3_column_int64(statement_, column); }
  std::string_view Bytes(int column) const;

 private:
  sqlite3_stmt* statement_;
};

// A connection to one SQLite file, for one thread. What can't be done throws `SqliteError`.
class SqliteDatabase {
 public:
  // `vfs` names one of SQLite's ways to the file system; null is the usual one.
  SqliteDatabase(const std::string& path, int flags, const char* vfs = nullptr);

  // Leaves the write-ahead log as it is when this connection is closed.
  void KeepLogAtClose();

  // How long a call waits for another connection to finish.
  void SetPatience(std::chrono::milliseconds patience);

  // Runs statements that give nothing back.
  void Execute(const char* statements);

  // `statement` is a constant: it is prepared once and kept under its address.
  SqliteQuery Query(const char* statement);

  bool InTransaction() const { return sqlite3_get_autocommit(connection_.get()) == 0; }

  // The rows that the last INSERT, UPDATE or DELETE changed by itself.
  int Changes() { return sqlite3_changes(connection_.get()); }

 private:
  struct Closer {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  std::unique_ptr<sqlite3, Closer> connection_;
  std::unordered_map<const void*, std::unique_ptr<sqlite3_stmt, Closer>> statements_;
};

// A write transaction: taken up at once, rolled back unless it is committed. Inside another it is a part of that one.
class SqliteTransaction {
 public:
  explicit SqliteTransaction(SqliteDatabase& database);
  ~SqliteTransaction();
  SqliteTransaction(const SqliteTransaction&) = delete;
  SqliteTransaction& operator=(const SqliteTransaction&) = delete;

  void Commit();

 private:
  SqliteDatabase& database_;
  bool is_part_;
  bool open_ = true;
};

}  // namespace quorvale
