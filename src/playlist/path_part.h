#pragma once

#include <cstdint>
#include <string>

#include "system/path_syntax.h"

namespace quorvale {

inline constexpr std::int32_t kPathDrive = 0;      // two characters, "C:"
inline constexpr std::int32_t kPathDirectory = 1;  // without the drive; keeps its first and last separator
inline constexpr std::int32_t kPathName = 2;       // ends before its first dot
inline constexpr std::int32_t kPathExtension = 3;  // begins with the name's first dot and ends before the next

// One of the four parts of a path. Fails with kInvalidArgument for any other `part`.
std::string PathPart(const std::string& path, std::int32_t part, const PathSyntax& syntax);

}  // namespace quorvale
