#include "platform/desktop/system/registry_keys.h"

#include <algorithm>
#include <string_view>

namespace quorvale {
namespace {

constexpr char kFindKey[] = "SELECT id FROM keys WHERE hive = ?1 AND path = ?2";
constexpr char kAddKey[] =
    "INSERT INTO keys (hive, path, parent) VALUES (?1, ?2, ?3) ON CONFLICT (hive, path) DO NOTHING";
constexpr char kKeyExists[] = "SELECT 1 FROM keys WHERE id = ?1";

}  // namespace

std::string JoinPath(std::string base, const std::string& path) {
  // The calls' texts end at their first NUL.
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

std::optional<std::int64_t> FindKey(SqliteDatabase& database, std::uint32_t hive, const std::string& path) {
  SqliteQuery query = database.Query(kFindKey);
  if (!query.Bind(1, hive).Bind(2, path).Step()) return std::nullopt;
  return query.Number(0);
}

bool KeyExists(SqliteDatabase& database, std::int64_t id) { return database.Query(kKeyExists).Bind(1, id).Step(); }

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

}  // namespace quorvale
