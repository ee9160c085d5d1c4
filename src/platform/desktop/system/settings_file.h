#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/desktop/system/directory_lock.h"
#include "platform/desktop/system/sqlite_database.h"

namespace quorvale {

// The SQLite file that the registry lies in: opened when it is first needed, created by the first write,
// set aside when it is damaged.
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
  std::string directory_;
  std::string path_;
  // Held while the file is open; who sets it aside holds the directory alone.
  std::optional<DirectoryLock> share_;
  std::unique_ptr<SqliteDatabase> database_;
  bool was_damaged_ = false;
  bool given_up_ = false;
};

}  // namespace quorvale
