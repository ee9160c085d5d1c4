#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/desktop/system/settings_file.h"
#include "system/registry.h"

namespace quorvale {

struct RegistryValue {
  std::string name;
  std::uint32_t type = 0;
  std::string data;  // as stored: a text may have come without its terminating NUL
};

// The registry of one user in a SQLite file. Every call is one transaction, and so is an act of several writes: on
// disk or absent whenever the process is killed. Several processes may be at it at once. Reading creates nothing. A
// file that can't be used makes calls fail, a damaged one is set aside and a new one begun.
class SqliteRegistry : public Registry {
 public:
  // `directory` as `SettingsDirectory` gives it.
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

  // The names of the keys right below `key`, or its values, in name order.
  std::int32_t EnumerateKeys(RegistryKey key, std::vector<std::string>& names);
  std::int32_t EnumerateValues(RegistryKey key, std::vector<RegistryValue>& values);

  // Closes the file, which brings the log's content into it. Open keys stay open, and the next call opens
  // the file again. Writes that were not committed are lost.
  void Close();

 private:
  struct OpenKey {
    std::uint32_t hive = 0;
    std::string path;
    std::uint32_t access = 0;
    std::int64_t id = 0;
  };

  // Runs `work(database)`, and once more when the file had to be set aside. Gives its result, or the
  // number of what kept it from having one.
  template <typename Work>
  std::int32_t Run(SettingsFile::Access access, Work work);

  // The same for a call in an act of several writes. The first that the system fails ends the transaction, and the
  // calls behind it do nothing.
  template <typename Work>
  std::int32_t RunInAct(SettingsFile::Access access, Work work);

  // The same for a call on an open key that has the right `needed`: runs `work(database, opened)`.
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

  // An act of several writes, and what came of its calls.
  struct Act {
    explicit Act(SqliteDatabase& database) : transaction(database) {}

    SqliteTransaction transaction;
    std::int32_t result = kErrorSuccess;
    bool found_damage = false;
    // The key opened last, under its path as given: the entries of a list all lie in one key.
    std::string last_path;
    OpenKey last_opened;
    std::vector<DeletedKey> deleted;
  };

  SettingsFile file_;
  std::optional<Act> act_;
  std::unordered_map<RegistryKey, OpenKey> open_keys_;
  RegistryKey last_key_ = 0;
  bool waited_in_vain_ = false;
};

}  // namespace quorvale
