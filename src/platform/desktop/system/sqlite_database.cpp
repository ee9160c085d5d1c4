#include "platform/desktop/system/sqlite_database.h"

namespace quorvale {
namespace {

void Check(int result) {
  if (result != SQLITE_OK) throw SqliteError{result};
}

}  // namespace

SqliteQuery& SqliteQuery::Bind(int parameter, std::int64_t number) {
  Check(sqlite3_bind_int64(statement_, parameter, number));
  return *this;
}

SqliteQuery& SqliteQuery::Bind(int parameter, const std::string& text) {
  Check(sqlite3_bind_text(statement_, parameter, text.c_str(), -1, SQLITE_STATIC));
  return *this;
}

SqliteQuery& SqliteQuery::BindBytes(int parameter, std::string_view bytes) {
  // A null pointer would bind NULL instead of no bytes.
  const char* data = bytes.empty() ? "" : bytes.data();
  Check(sqlite3_bind_blob64(statement_, parameter, data, bytes.size(), SQLITE_STATIC));
  return *this;
}

bool SqliteQuery::Step() {
  const int result = sqlite3_step(statement_);
  if (result != SQLITE_ROW && result != SQLITE_DONE) throw SqliteError{result};
  return result == SQLITE_ROW;
}

std::string_view SqliteQuery::Bytes(int column) const {
  const void* bytes = sqlite3_column_blob(statement_, column);
  if (bytes == nullptr) return {};
  return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

SqliteDatabase::SqliteDatabase(const std::string& path, int flags, const char* vfs) {
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(path.c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX, vfs);
  connection_.reset(opened);
  Check(result);
}

void SqliteDatabase::KeepLogAtClose() {
  Check(sqlite3_db_config(connection_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr));
}

void SqliteDatabase::SetPatience(std::chrono::milliseconds patience) {
  Check(sqlite3_busy_timeout(connection_.get(), static_cast<int>(patience.count())));
}

void SqliteDatabase::Execute(const char* statements) {
  Check(sqlite3_exec(connection_.get(), statements, nullptr, nullptr, nullptr));
}

SqliteQuery SqliteDatabase::Query(const char* statement) {
  auto& kept = statements_[statement];
  if (kept == nullptr) {
    sqlite3_stmt* prepared = nullptr;
    Check(sqlite3_prepare_v3(connection_.get(), statement, -1, SQLITE_PREPARE_PERSISTENT, &prepared, nullptr));
    kept.reset(prepared);
  }
  return SqliteQuery(kept.get());
}

SqliteTransaction::SqliteTransaction(SqliteDatabase& database)
    : database_(database), is_part_(database.InTransaction()) {
  database_.Execute(is_part_ ? "SAVEPOINT part" : "BEGIN IMMEDIATE");
}

SqliteTransaction::~SqliteTransaction() {
  if (!open_) return;
  try {
    database_.Execute(is_part_ ? "ROLLBACK TO part; RELEASE part" : "ROLLBACK");
  } catch (const SqliteError&) {
    // After some failures SQLite has already rolled back, and this fails.
  }
}

void SqliteTransaction::Commit() {
  database_.Execute(is_part_ ? "RELEASE part" : "COMMIT");
  open_ = false;
}

}  // namespace quorvale
