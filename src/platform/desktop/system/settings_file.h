#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/desktop/system/directory_lock.h"
#include "platform/desktop/system/sqlite_database.h"

namespace quorvale {

// The SQLite file that the registry lies in: opened when it is first needed, created by the first write for its owner
// alone, set aside when it is damaged. Where it can't be written, on a read-only or a full file system, it can still be
// read.
class SettingsFile {
 public:
  // `directory` as `SettingsDirectory` gives it; an empty one has no file.
  explicit SettingsFile(std::string directory);

  enum class Access { kRead, kWrite };

  // The open file, or null when there is none to read. Throws `SqliteError` when it can't be opened.
  SqliteDatabase* Open(Access access);

  // To be called when damage was found. Closes the file and gives it another name, unless it proves sound
  // or gone. False when that can't be done: from then on opening fails, so that it costs no more time.
  bool SetAside();

  // The next `Open` opens it again.
  void Close();

 private:
  SqliteDatabase* OpenToWrite(Access access);
  SqliteDatabase* OpenToReadOnly();

  std::string directory_;
  std::string path_;
  // Held while the file is open; who sets it aside holds the directory alone.
  std::optional<DirectoryLock> share_;
  std::unique_ptr<SqliteDatabase> database_;
  // The end of a connection that only reads and takes part in no locking. It is short, so that a place that has become
  // writable is found, and what others write then is seen.
  std::optional<std::chrono::steady_clock::time_point> read_only_until_;
  bool was_damaged_ = false;
  bool given_up_ = false;
};

}  // namespace quorvale
