#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/desktop/system/settings_file.h"
#include "platform/desktop/system/sqlite_database.h"
#include "system/registry.h"

namespace quorvale {

struct RegistryValue {
  std::string name;
  std::uint32_t type = 0;
  std::string data;  // as stored: texts may lack the terminating NUL
};

// The registry of one user in a SQLite file. Each call outside `BeginWrites` is a transaction of its own, so a kill
// leaves it done or not done. Several processes may use the file at once. Reading creates nothing. Calls fail if the
// file can't be used. A damaged file is renamed, and a new one created.
class SqliteRegistry : public Registry {
 public:
  // `directory` as from `SettingsDirectory`.
  explicit SqliteRegistry(std::string directory) : file_(std::move(directory)) {}

  std::int32_t RegOpenKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                            RegistryKey& key) override;
  std::int32_t RegCreateKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                              RegistryKey& key) override;
  std::int32_t RegQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type, char* data,
                               std::uint32_t& size) override;
  std::int32_t RegSetValueEx(RegistryKey key, const std::string& name, std::uint32_t type, const char* data,
                             std::uint32_t size) override;
  std::int32_t RegDeleteValue(RegistryKey key, const std::string& name) override;
  std::int32_t RegDeleteKey(RegistryKey key, const std::string& name) override;
  std::int32_t RegCloseKey(RegistryKey key) override;
  std::int32_t BeginWrites() override;
  std::int32_t CommitWrites() override;
  void CancelWrites() override;

  // The names of the keys directly below `key`, or its values, in name order.
  std::int32_t EnumerateKeys(RegistryKey key, std::vector<std::string>& names);
  std::int32_t EnumerateValues(RegistryKey key, std::vector<RegistryValue>& values);

  // Closes the file, which writes its log back. Open keys stay valid, and the next call opens the file again. An
  // uncommitted transaction is cancelled.
  void Close();

 private:
  struct OpenKey {
    std::uint32_t hive = 0;
    std::string path;
    std::uint32_t access = 0;
    std::int64_t id = 0;
  };

  // Runs `work(database)`, and again if a damaged file was replaced. Returns its result or the error number for a
  // failure.
  template <typename Work>
  std::int32_t Run(SettingsFile::Access access, Work work);

  // The same for a call in the open transaction. After a failure of the system the transaction's other calls fail too.
  template <typename Work>
  std::int32_t RunInTransaction(SettingsFile::Access access, Work work);

  // The same for a call on an open key that needs the right `needed`: runs `work(database, opened)`.
  template <typename Work>
  std::int32_t RunOn(RegistryKey key, std::uint32_t needed, SettingsFile::Access access, Work work);

  std::int32_t Remember(OpenKey opened, RegistryKey& key);
  // Null when `key` is not open.
  const OpenKey* Find(RegistryKey key) const;

  // A key that the open transaction has deleted. Its values stay in the table until the commit. If the key is created
  // again, it gets the same number, and new values overwrite the old: SQLite writes pages that are emptied and filled
  // anew at twice the cost. Values that are not in `written` don't exist for the calls.
  struct DeletedKey {
    std::uint32_t hive = 0;
    std::string path;
    std::int64_t id = 0;
    std::unordered_set<std::string> written;  // folded names
  };

  void RememberDeleted(DeletedKey deleted);
  // The number that a key just created in the transaction has from now on.
  std::int64_t RestoreNumber(SqliteDatabase& database, const OpenKey& created) const;
  // Null outside a transaction, and for a key that it has not deleted.
  DeletedKey* FindDeleted(std::int64_t id);
  // Whether the value is one that stays in the table of a deleted key only until the commit.
  bool IsLeftover(std::int64_t id, const std::string& name);
  static void DeleteLeftovers(SqliteDatabase& database, const DeletedKey& deleted);

  struct OpenTransaction {
    explicit OpenTransaction(SqliteDatabase& database) : sqlite(database) {}

    SqliteTransaction sqlite;
    // The first failure of the system.
    std::int32_t result = kErrorSuccess;
    bool found_damage = false;
    // The key opened last, under its path as given: the entries of a list all lie in one key.
    std::string last_path;
    OpenKey last_opened;
    std::vector<DeletedKey> deleted;
  };

  SettingsFile file_;
  std::optional<OpenTransaction> transaction_;
  std::unordered_map<RegistryKey, OpenKey> open_keys_;
  RegistryKey last_key_ = 0;
  bool last_wait_failed_ = false;
};

}  // namespace quorvale
