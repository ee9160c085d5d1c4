#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/desktop/system/sqlite_database.h"

namespace quorvale {

// The table of the registry's keys. All but `JoinPath` throw `SqliteError`.

// `path` below `base`, with one separator between the levels and none at the ends.
std::string JoinPath(std::string base, const std::string& path);

// The key's row in the table, or nothing.
std::optional<std::int64_t> FindKey(SqliteDatabase& database, std::uint32_t hive, const std::string& path);

bool KeyExists(SqliteDatabase& database, std::int64_t id);

// The row of the key, which is created with all that is missing above it.
std::int64_t CreateKey(SqliteDatabase& database, std::uint32_t hive, const std::string& path);

}  // namespace quorvale
