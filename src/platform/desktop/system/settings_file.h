#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/desktop/system/file_locks.h"
#include "platform/desktop/system/sqlite_database.h"

namespace quorvale {

// The SQLite file of the registry. It is opened when it is first needed, created by the first write with access for its
// owner only, and renamed if it is damaged. On a read-only or full file system it can still be read.
class SettingsFile {
 public:
  // `directory` as from `SettingsDirectory`. If it is empty, there is no file.
  explicit SettingsFile(std::string directory);

  enum class Access { kRead, kWrite };

  // The open file, or null if there is none to read. Throws `SqliteError` if it can't be opened.
  SqliteDatabase* Open(Access access);

  // Call it after finding damage. Closes the file and renames it if it is still damaged. False if that is not possible:
  // then `Open` fails from now on.
  bool SetAside();

  // `Open` opens it again.
  void Close();

 private:
  SqliteDatabase* OpenToWrite(Access access);
  SqliteDatabase* OpenToReadOnly();

  std::string directory_;
  std::string path_;
  // Held while the file is open. `SetAside` takes an exclusive lock.
  std::optional<DirectoryLock> share_;
  std::unique_ptr<SqliteDatabase> database_;
  // When a read-only connection ends. It takes no locks and sees no changes, so it lives only shortly.
  std::optional<std::chrono::steady_clock::time_point> read_only_until_;
  bool was_damaged_ = false;
  bool given_up_ = false;
};

}  // namespace quorvale
