#include "platform/desktop/system/settings_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "platform/desktop/system/files.h"

namespace quorvale {
namespace {

// How long `SetAside` waits for processes that have the file open, and they for it.
constexpr std::chrono::milliseconds kLockPatience{1000};
constexpr std::chrono::milliseconds kReadOnlyLife{1000};
constexpr int kMostSetAside = 1000;

// Each hive has a row with its own number from the start, so every other key has a parent. A deleted key's number is
// not given to another, but to the same key if one transaction deletes it and creates it again.
constexpr char kSchema[] = R"(
CREATE TABLE keys (
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  hive INTEGER NOT NULL,
  path TEXT NOT NULL COLLATE NOCASE,
  parent INTEGER REFERENCES keys (id),
  UNIQUE (hive, path));
CREATE INDEX keys_by_parent ON keys (parent);
CREATE TABLE key_values (
  key INTEGER NOT NULL REFERENCES keys (id) ON DELETE CASCADE,
  name TEXT NOT NULL COLLATE NOCASE,
  type INTEGER NOT NULL,
  data BLOB NOT NULL,
  PRIMARY KEY (key, name)) WITHOUT ROWID;
INSERT INTO keys (id, hive, path)
  WITH RECURSIVE hives (hive) AS (SELECT 0x80000000 UNION ALL SELECT hive + 1 FROM hives WHERE hive < 0x80000006)
  SELECT hive, hive, '' FROM hives;
PRAGMA user_version = 1;
)";

bool HasSchema(SqliteDatabase& database) {
  SqliteQuery version = database.Query("PRAGMA user_version");
  return version.Step() && version.Number(0) != 0;
}

void CreateSchema(SqliteDatabase& database) {
  SqliteTransaction transaction(database);
  // Another process may have been first.
  if (!HasSchema(database)) database.Execute(kSchema);
  transaction.Commit();
}

// The file remembers that the log is on. If two processes turn it on at once, one may fail; the file then works without
// it until it is opened again.
void TurnOnWriteAheadLog(SqliteDatabase& database) {
  try {
    database.Execute("PRAGMA journal_mode = WAL");
  } catch (const SqliteError& error) {
    if (error.IsDamage()) throw;
  }
}

// Throws if `path` is something other than a regular file, because opening a pipe would wait.
bool IsThere(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT) return false;
    throw SqliteError{SQLITE_CANTOPEN};
  }
  if (!S_ISREG(status.st_mode)) throw SqliteError{SQLITE_CANTOPEN};
  return true;
}

// SQLite would make it readable for everybody. It gives the files beside it the same mode.
void CreateForOwner(const std::string& path) {
  const FileDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
}

// 0 if the file is missing.
off_t SizeOf(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_size : 0;
}

std::string ImmutableUri(const std::string& path) {
  std::string uri = "file:";
  for (const char c : path) {
    switch (c) {
      case '%':
        uri += "%25";
        break;
      case '?':
        uri += "%3f";
        break;
      case '#':
        uri += "%23";
        break;
      default:
        uri += c;
    }
  }
  return uri + "?immutable=1";
}

bool IsDamaged(const std::string& path) {
  try {
    if (!IsThere(path)) return false;
    SqliteDatabase database(path, SQLITE_OPEN_READWRITE);
    SqliteQuery check = database.Query("PRAGMA integrity_check(1)");
    if (!check.Step() || check.Bytes(0) != "ok") return true;
    database.Query("SELECT 1 FROM keys JOIN key_values ON key = id LIMIT 1").Step();
    return false;
  } catch (const SqliteError& error) {
    return error.IsDamage();
  }
}

// Renames the log too, because values may be recovered from it. The file is first: SQLite deletes a log without a file,
// but a file without its log would lose values.
bool Rename(const std::string& path) {
  for (int number = 1; number <= kMostSetAside; ++number) {
    const std::string aside = path + ".damaged-" + std::to_string(number);
    if (access(aside.c_str(), F_OK) == 0) continue;
    if (std::rename(path.c_str(), aside.c_str()) != 0) return false;
    for (const char* suffix : {"-wal", "-shm"}) std::rename((path + suffix).c_str(), (aside + suffix).c_str());
    return true;
  }
  return false;
}

}  // namespace

SettingsFile::SettingsFile(std::string directory)
    : directory_(std::move(directory)), path_(directory_ + "/settings.db"), given_up_(directory_.empty()) {}

SqliteDatabase* SettingsFile::Open(Access access) {
  if (read_only_until_ && std::chrono::steady_clock::now() >= *read_only_until_) Close();
  if (read_only_until_ && access == Access::kWrite) throw SqliteError{SQLITE_READONLY};
  if (database_ != nullptr) return database_.get();
  if (given_up_) throw SqliteError{SQLITE_CANTOPEN};
  try {
    return OpenToWrite(access);
  } catch (const SqliteError& error) {
    if (access == Access::kWrite || !error.IsUnwritable() || !IsThere(path_)) throw;
    return OpenToReadOnly();
  }
}

SqliteDatabase* SettingsFile::OpenToWrite(Access access) {
  const bool write = access == Access::kWrite;
  if (!IsThere(path_) && !write) return nullptr;
  if (write && !CreateDirectories(directory_)) throw SqliteError{SQLITE_CANTOPEN};
  std::optional<DirectoryLock> share = DirectoryLock::Take(directory_, DirectoryLock::Kind::kShared, kLockPatience);
  if (!share) throw SqliteError{SQLITE_BUSY};

  if (write) CreateForOwner(path_);
  auto database = std::make_unique<SqliteDatabase>(path_, SQLITE_OPEN_READWRITE | (write ? SQLITE_OPEN_CREATE : 0));
  database->SetPatience(kLockPatience);
  if (!HasSchema(*database)) {
    if (!write) return nullptr;
    CreateSchema(*database);
  }
  TurnOnWriteAheadLog(*database);
  // The cache size is in KiB. With SQLite's default of 2 MB, a long list is written and read back while it is saved.
  database->Execute("PRAGMA synchronous = NORMAL; PRAGMA cache_size = -16000");
  share_ = std::move(share);
  database_ = std::move(database);
  return database_.get();
}

// A write-ahead log needs an index file, which can't be created here. Without locks the index is in memory. A file
// without a log is opened as one that nobody changes.
SqliteDatabase* SettingsFile::OpenToReadOnly() {
  std::unique_ptr<SqliteDatabase> database;
  if (SizeOf(path_ + "-wal") > 0) {
    database = std::make_unique<SqliteDatabase>(path_, SQLITE_OPEN_READONLY, "unix-none");
    database->KeepLogAtClose();
    database->Execute("PRAGMA locking_mode = EXCLUSIVE");
  } else {
    database = std::make_unique<SqliteDatabase>(ImmutableUri(path_), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
  }
  if (!HasSchema(*database)) return nullptr;
  database_ = std::move(database);
  read_only_until_ = std::chrono::steady_clock::now() + kReadOnlyLife;
  return database_.get();
}

bool SettingsFile::SetAside() {
  Close();
  // If a new file is damaged too, the file is not the cause.
  given_up_ = true;
  if (std::exchange(was_damaged_, true)) return false;
  const auto alone = DirectoryLock::Take(directory_, DirectoryLock::Kind::kExclusive, kLockPatience);
  given_up_ = !alone || (IsDamaged(path_) && !Rename(path_));
  return !given_up_;
}

void SettingsFile::Close() {
  read_only_until_.reset();
  database_.reset();
  share_.reset();
}

}  // namespace quorvale
