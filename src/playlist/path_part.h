#pragma once

#include <cstdint>
#include <string>

#include "system/path_syntax.h"

namespace quorvale {

inline constexpr std::int32_t kPathDrive = 0;      // two characters, "C:"
inline constexpr std::int32_t kPathDirectory = 1;  // with its leading and final separator, without the drive
inline constexpr std::int32_t kPathName = 2;       // up to its first dot
inline constexpr std::int32_t kPathExtension = 3;  // from the name's first dot to the second, or to the end

// One of the four parts of a path. Fails with kInvalidArgument for any other `part`.
std::string PathPart(const std::string& path, std::int32_t part, const PathSyntax& syntax);

}  // namespace quorvale
