#include "platform/desktop/system/sqlite_registry.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <utility>

#include "base/text.h"

namespace quorvale {
namespace {

using Access = SettingsFile::Access;

// Rights as bits of the access that a key is opened with.
constexpr std::uint32_t kAnyRight = 0;
constexpr std::uint32_t kQueryRight = 1;
constexpr std::uint32_t kSetRight = 2;
constexpr std::uint32_t kEnumerateRight = 8;

constexpr std::uint32_t kRegExpandSz = 2;
constexpr std::uint32_t kRegMultiSz = 7;

// How long a call waits for another process that writes. If that process hangs, only the first call waits that long;
// the next ones wait shortly, until a write succeeds.
constexpr std::chrono::milliseconds kPatience{2000};
constexpr std::chrono::milliseconds kShortPatience{20};

constexpr char kFindKey[] = "SELECT id FROM keys WHERE hive = ?1 AND path = ?2";
constexpr char kAddKey[] =
    "INSERT INTO keys (hive, path, parent) VALUES (?1, ?2, ?3) ON CONFLICT (hive, path) DO NOTHING";
constexpr char kKeyExists[] = "SELECT 1 FROM keys WHERE id = ?1";
constexpr char kSubkeys[] = "SELECT path FROM keys WHERE parent = ?1 ORDER BY path";
constexpr char kRenumberKey[] = "UPDATE keys SET id = ?2 WHERE id = ?1";
constexpr char kDeleteKey[] = "DELETE FROM keys WHERE id = ?1";
constexpr char kDeleteValues[] = "DELETE FROM key_values WHERE key = ?1";
constexpr char kNames[] = "SELECT name FROM key_values WHERE key = ?1";
// A row with NULL means that the key has no such value. No row means that the key is gone.
constexpr char kFindValue[] =
    "SELECT v.type, v.data FROM keys k LEFT JOIN key_values v ON v.key = k.id AND v.name = ?2 WHERE k.id = ?1";
constexpr char kValues[] = "SELECT name, type, data FROM key_values WHERE key = ?1 ORDER BY name";
constexpr char kSetValue[] =
    "INSERT INTO key_values (key, name, type, data) SELECT id, ?2, ?3, ?4 FROM keys WHERE id = ?1 "
    "ON CONFLICT (key, name) DO UPDATE SET type = excluded.type, data = excluded.data";
constexpr char kDeleteValue[] = "DELETE FROM key_values WHERE key = ?1 AND name = ?2";

bool IsHive(std::uint32_t hive) { return hive >= kHkeyClassesRoot && hive <= kHkeyDynData; }

std::int32_t FaultOf(Access access) { return access == Access::kRead ? kErrorReadFault : kErrorWriteFault; }

// Equal for names that the registry does not distinguish. Names end at their first NUL.
std::string Folded(const std::string& name) { return UpperCase(name.c_str()); }

bool IsText(std::uint32_t type) { return type == kRegSz || type == kRegExpandSz || type == kRegMultiSz; }

// `path` below `base`, with one separator between levels and none at the ends.
std::string JoinPath(std::string base, const std::string& path) {
  // Like all texts of the registry's calls it ends at its first NUL.
  std::string_view rest = path.c_str();
  while (!rest.empty()) {
    const std::string_view level = rest.substr(0, rest.find('\\'));
    rest.remove_prefix(std::min(rest.size(), level.size() + 1));
    if (level.empty()) continue;
    if (!base.empty()) base += '\\';
    base += level;
  }
  return base;
}

// The key's number, if there is such a key.
std::optional<std::int64_t> FindKey(SqliteDatabase& database, std::uint32_t hive, const std::string& path) {
  SqliteQuery query = database.Query(kFindKey);
  if (!query.Bind(1, hive).Bind(2, path).Step()) return std::nullopt;
  return query.Number(0);
}

bool KeyExists(SqliteDatabase& database, std::int64_t id) { return database.Query(kKeyExists).Bind(1, id).Step(); }

// The number of the key. It and its missing parents are created.
std::int64_t CreateKey(SqliteDatabase& database, std::uint32_t hive, const std::string& path) {
  SqliteTransaction transaction(database);
  std::int64_t id = hive;
  for (std::size_t end = 0; end < path.size(); ++end) {
    end = std::min(path.find('\\', end), path.size());
    const std::string level = path.substr(0, end);
    database.Query(kAddKey).Bind(1, hive).Bind(2, level).Bind(3, id).Step();
    const auto found = FindKey(database, hive, level);
    if (!found) throw SqliteError(SQLITE_CORRUPT);
    id = *found;
  }
  transaction.Commit();
  return id;
}

}  // namespace

template <typename Work>
std::int32_t SqliteRegistry::Run(Access access, Work work) {
  if (transaction_) return RunInTransaction(access, work);
  const std::int32_t fault = FaultOf(access);
  try {
    while (true) {
      try {
        SqliteDatabase* database = file_.Open(access);
        if (database == nullptr) return kErrorFileNotFound;
        database->SetPatience(last_wait_failed_ ? kShortPatience : kPatience);
        const std::int32_t result = work(*database);
        if (access == Access::kWrite) last_wait_failed_ = false;
        return result;
      } catch (const SqliteError& error) {
        last_wait_failed_ = error.IsBusy();
        if (!error.IsDamage() || !file_.SetAside()) return fault;
        // Their rows were in the old file.
        open_keys_.clear();
      }
    }
  } catch (const std::exception&) {
    return fault;
  }
}

template <typename Work>
std::int32_t SqliteRegistry::RunInTransaction(Access access, Work work) {
  if (transaction_->result != kErrorSuccess) return transaction_->result;
  try {
    return work(*file_.Open(access));
  } catch (const SqliteError& error) {
    transaction_->found_damage = error.IsDamage();
  } catch (const std::exception&) {
    // Out of memory. The transaction fails as a whole.
  }
  return transaction_->result = FaultOf(access);
}

template <typename Work>
std::int32_t SqliteRegistry::RunOn(RegistryKey key, std::uint32_t needed, Access access, Work work) {
  const OpenKey* found = Find(key);
  if (found == nullptr) return kErrorInvalidHandle;
  if ((found->access & needed) != needed) return kErrorAccessDenied;
  return Run(access, [&](SqliteDatabase& database) {
    // A damaged file may have been replaced, which closes all keys.
    const OpenKey* opened = Find(key);
    return opened == nullptr ? kErrorInvalidHandle : work(database, *opened);
  });
}

std::int32_t SqliteRegistry::RegOpenKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                                          RegistryKey& key) {
  key = 0;
  if (!IsHive(hive)) return kErrorInvalidHandle;
  return Run(Access::kRead, [&](SqliteDatabase& database) {
    OpenKey opened{hive, {}, access, 0};
    if (transaction_ && transaction_->last_opened.hive == hive && transaction_->last_path == path) {
      opened.path = transaction_->last_opened.path;
      opened.id = transaction_->last_opened.id;
      return Remember(std::move(opened), key);
    }
    opened.path = JoinPath({}, path);
    const auto id = FindKey(database, hive, opened.path);
    if (!id) return kErrorFileNotFound;
    opened.id = *id;
    if (transaction_) {
      transaction_->last_path = path;
      transaction_->last_opened = opened;
    }
    return Remember(std::move(opened), key);
  });
}

std::int32_t SqliteRegistry::RegCreateKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                                            RegistryKey& key) {
  if (!IsHive(hive)) return kErrorInvalidHandle;
  // Most keys exist, and opening one needs no write lock.
  if (RegOpenKeyEx(hive, path, access, key) == kErrorSuccess) return kErrorSuccess;
  return Run(Access::kWrite, [&](SqliteDatabase& database) {
    OpenKey opened{hive, JoinPath({}, path), access, 0};
    opened.id = CreateKey(database, hive, opened.path);
    if (transaction_) opened.id = RestoreNumber(database, opened);
    return Remember(std::move(opened), key);
  });
}

std::int32_t SqliteRegistry::RegQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type, char* data,
                                             std::uint32_t& size) {
  return RunOn(key, kQueryRight, Access::kRead, [&](SqliteDatabase& database, const OpenKey& opened) {
    SqliteQuery query = database.Query(kFindValue);
    if (!query.Bind(1, opened.id).Bind(2, name).Step()) return kErrorKeyDeleted;
    if (query.IsNull(0) || IsLeftover(opened.id, name)) return kErrorFileNotFound;
    type = static_cast<std::uint32_t>(query.Number(0));
    const std::string_view bytes = query.Bytes(1);
    const bool lacks_nul = IsText(type) && !bytes.ends_with('\0');
    const auto room = std::exchange(size, static_cast<std::uint32_t>(bytes.size()) + (lacks_nul ? 1 : 0));
    if (data == nullptr) return kErrorSuccess;
    if (room < size) return kErrorMoreData;
    std::copy(bytes.begin(), bytes.end(), data);
    if (lacks_nul) data[bytes.size()] = '\0';
    return kErrorSuccess;
  });
}

std::int32_t SqliteRegistry::RegSetValueEx(RegistryKey key, const std::string& name, std::uint32_t type,
                                           const char* data, std::uint32_t size) {
  return RunOn(key, kSetRight, Access::kWrite, [&](SqliteDatabase& database, const OpenKey& opened) {
    SqliteQuery query = database.Query(kSetValue);
    query.Bind(1, opened.id).Bind(2, name).Bind(3, type).BindBytes(4, std::string_view(data, size)).Step();
    if (database.Changes() == 0) return kErrorKeyDeleted;
    if (DeletedKey* const deleted = FindDeleted(opened.id)) deleted->written.insert(Folded(name));
    return kErrorSuccess;
  });
}

std::int32_t SqliteRegistry::RegDeleteValue(RegistryKey key, const std::string& name) {
  return RunOn(key, kSetRight, Access::kWrite, [&](SqliteDatabase& database, const OpenKey& opened) {
    SqliteTransaction transaction(database);
    if (!KeyExists(database, opened.id)) return kErrorKeyDeleted;
    if (IsLeftover(opened.id, name)) return kErrorFileNotFound;
    database.Query(kDeleteValue).Bind(1, opened.id).Bind(2, name).Step();
    if (database.Changes() == 0) return kErrorFileNotFound;
    transaction.Commit();
    if (DeletedKey* const deleted = FindDeleted(opened.id)) deleted->written.erase(Folded(name));
    return kErrorSuccess;
  });
}

std::int32_t SqliteRegistry::RegDeleteKey(RegistryKey key, const std::string& name) {
  return RunOn(key, kAnyRight, Access::kWrite, [&](SqliteDatabase& database, const OpenKey& opened) {
    SqliteTransaction transaction(database);
    if (!KeyExists(database, opened.id)) return kErrorKeyDeleted;
    const std::string path = JoinPath(opened.path, name);
    const auto id = FindKey(database, opened.hive, path);
    if (!id) return kErrorFileNotFound;
    const bool is_hive = path.empty();
    if (is_hive || database.Query(kSubkeys).Bind(1, *id).Step()) return kErrorAccessDenied;
    database.Query(kDeleteKey).Bind(1, *id).Step();
    if (!transaction_) database.Query(kDeleteValues).Bind(1, *id).Step();
    transaction.Commit();
    if (transaction_) RememberDeleted({opened.hive, path, *id, {}});
    return kErrorSuccess;
  });
}

std::int32_t SqliteRegistry::RegCloseKey(RegistryKey key) {
  return open_keys_.erase(key) == 0 ? kErrorInvalidHandle : kErrorSuccess;
}

std::int32_t SqliteRegistry::BeginWrites() {
  if (transaction_) return kErrorInvalidFunction;
  // A transaction is worth a full wait, whatever happened before.
  last_wait_failed_ = false;
  return Run(Access::kWrite, [&](SqliteDatabase& database) {
    transaction_.emplace(database);
    return kErrorSuccess;
  });
}

std::int32_t SqliteRegistry::CommitWrites() {
  if (!transaction_) return kErrorInvalidFunction;
  const std::int32_t written = RunInTransaction(Access::kWrite, [&](SqliteDatabase& database) {
    for (const DeletedKey& deleted : transaction_->deleted) DeleteLeftovers(database, deleted);
    transaction_->sqlite.Commit();
    return kErrorSuccess;
  });
  CancelWrites();
  return written;
}

void SqliteRegistry::CancelWrites() {
  if (!transaction_) return;
  const bool found_damage = transaction_->found_damage;
  transaction_.reset();
  if (found_damage && file_.SetAside()) open_keys_.clear();
}

void SqliteRegistry::Close() {
  transaction_.reset();
  file_.Close();
}

std::int32_t SqliteRegistry::EnumerateKeys(RegistryKey key, std::vector<std::string>& names) {
  return RunOn(key, kEnumerateRight, Access::kRead, [&](SqliteDatabase& database, const OpenKey& opened) {
    names.clear();
    SqliteQuery query = database.Query(kSubkeys);
    query.Bind(1, opened.id);
    while (query.Step()) {
      const std::string_view path = query.Bytes(0);
      names.emplace_back(path.substr(path.rfind('\\') + 1));
    }
    return kErrorSuccess;
  });
}

std::int32_t SqliteRegistry::EnumerateValues(RegistryKey key, std::vector<RegistryValue>& values) {
  return RunOn(key, kQueryRight, Access::kRead, [&](SqliteDatabase& database, const OpenKey& opened) {
    values.clear();
    SqliteQuery query = database.Query(kValues);
    query.Bind(1, opened.id);
    while (query.Step()) {
      std::string name(query.Bytes(0));
      if (IsLeftover(opened.id, name)) continue;
      values.push_back({std::move(name), static_cast<std::uint32_t>(query.Number(1)), std::string(query.Bytes(2))});
    }
    return kErrorSuccess;
  });
}

void SqliteRegistry::RememberDeleted(DeletedKey deleted) {
  transaction_->last_opened = {};
  // A key created in its place is another one. These stay invalid even if the transaction is cancelled.
  for (auto& [key, opened] : open_keys_) {
    if (opened.id == deleted.id) opened.id = 0;
  }
  if (DeletedKey* const again = FindDeleted(deleted.id)) {
    again->written.clear();
  } else {
    transaction_->deleted.push_back(std::move(deleted));
  }
}

std::int64_t SqliteRegistry::RestoreNumber(SqliteDatabase& database, const OpenKey& created) const {
  for (const DeletedKey& deleted : transaction_->deleted) {
    if (deleted.hive != created.hive || !EqualsIgnoringCase(deleted.path, created.path)) continue;
    database.Query(kRenumberKey).Bind(1, created.id).Bind(2, deleted.id).Step();
    return deleted.id;
  }
  return created.id;
}

SqliteRegistry::DeletedKey* SqliteRegistry::FindDeleted(std::int64_t id) {
  if (!transaction_) return nullptr;
  const auto found = std::ranges::find(transaction_->deleted, id, &DeletedKey::id);
  return found == transaction_->deleted.end() ? nullptr : &*found;
}

bool SqliteRegistry::IsLeftover(std::int64_t id, const std::string& name) {
  const DeletedKey* const deleted = FindDeleted(id);
  return deleted != nullptr && !deleted->written.contains(Folded(name));
}

void SqliteRegistry::DeleteLeftovers(SqliteDatabase& database, const DeletedKey& deleted) {
  if (deleted.written.empty()) {
    database.Query(kDeleteValues).Bind(1, deleted.id).Step();
    return;
  }
  std::vector<std::string> leftovers;
  SqliteQuery names = database.Query(kNames);
  names.Bind(1, deleted.id);
  while (names.Step()) {
    std::string name(names.Bytes(0));
    if (!deleted.written.contains(Folded(name))) leftovers.push_back(std::move(name));
  }
  for (const std::string& name : leftovers) database.Query(kDeleteValue).Bind(1, deleted.id).Bind(2, name).Step();
}

std::int32_t SqliteRegistry::Remember(OpenKey opened, RegistryKey& key) {
  open_keys_.emplace(++last_key_, std::move(opened));
  key = last_key_;
  return kErrorSuccess;
}

const SqliteRegistry::OpenKey* SqliteRegistry::Find(RegistryKey key) const {
  const auto found = open_keys_.find(key);
  return found == open_keys_.end() ? nullptr : &found->second;
}

}  // namespace quorvale
