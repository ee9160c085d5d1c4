#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quorvale {

// SQLite's result code of a failed call. The registry catches it.
class SqliteError {
 public:
  explicit SqliteError(int code) : code_(code) {}

  // The file is no database, has other tables or another format, or its rows contradict each other.
  bool IsDamage() const {
    return Primary() == SQLITE_CORRUPT || Primary() == SQLITE_NOTADB || Primary() == SQLITE_ERROR ||
           Primary() == SQLITE_CONSTRAINT;
  }
  bool IsBusy() const { return Primary() == SQLITE_BUSY; }
  // The file, or a file that belongs beside it, can't be created or written.
  bool IsUnwritable() const {
    return Primary() == SQLITE_CANTOPEN || Primary() == SQLITE_READONLY || Primary() == SQLITE_IOERR ||
           Primary() == SQLITE_FULL;
  }

 private:
  int Primary() const { return code_ & 0xFF; }

  int code_;
};

// One execution of a prepared statement. The destructor resets the statement and ends its read transaction. Parameters
// count from 1, columns from 0. Column values are valid until the next step.
class SqliteQuery {
 public:
  explicit SqliteQuery(sqlite3_stmt* statement) : statement_(statement) {}
  ~SqliteQuery() { sqlite3_reset(statement_); }
  SqliteQuery(const SqliteQuery&) = delete;
  SqliteQuery& operator=(const SqliteQuery&) = delete;

  // Bound text and bytes are not copied and must outlive the query. A text ends at its first NUL.
  SqliteQuery& Bind(int parameter, std::int64_t number);
  SqliteQuery& Bind(int parameter, const std::string& text);
  SqliteQuery& BindBytes(int parameter, std::string_view bytes);

  // True if there is a row. Throws `SqliteError`.
  bool Step();

  bool IsNull(int column) const { return sqlite3_column_type(statement_, column) == SQLITE_NULL; }
  std::int64_t Number(int column) const { return sqlite3_column_int64(statement_, column); }
  std::string_view Bytes(int column) const;

 private:
  sqlite3_stmt* statement_;
};

// A connection to one SQLite file, for one thread. Failed calls throw `SqliteError`.
class SqliteDatabase {
 public:
  // `vfs` names one of SQLite's file system layers; null is the default.
  SqliteDatabase(const std::string& path, int flags, const char* vfs = nullptr);

  // Closing this connection will leave the write-ahead log unchanged.
  void KeepLogAtClose();

  // How long a call waits for other connections' locks.
  void SetPatience(std::chrono::milliseconds patience);

  // Runs statements without results.
  void Execute(const char* statements);

  // `statement` must be a constant: it is prepared once and cached by its address.
  SqliteQuery Query(const char* statement);

  bool InTransaction() const { return sqlite3_get_autocommit(connection_.get()) == 0; }

  // The number of rows that the last INSERT, UPDATE or DELETE changed.
  int Changes() { return sqlite3_changes(connection_.get()); }

 private:
  struct Closer {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  std::unique_ptr<sqlite3, Closer> connection_;
  std::unordered_map<const void*, std::unique_ptr<sqlite3_stmt, Closer>> statements_;
};

// A write transaction. It takes the write lock at once, and the destructor rolls back what was not committed. Inside
// another transaction it is a savepoint of that one.
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
