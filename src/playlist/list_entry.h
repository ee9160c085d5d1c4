#pragma once

#include <string>

#include "system/path_syntax.h"

namespace quorvale {

// A play list's item is one text of 512 columns, filled with blanks: the name from column 1, the
// directory from column 256. A directory entry holds the directory, with its final separator, in both.
inline constexpr int kListEntryColumns = 512;
inline constexpr int kListEntryDirectoryColumn = 256;

// What does not fit its columns is cut: the directory goes over a name that reaches its column.
std::string MakeListEntry(const std::string& name, const std::string& directory);

// The path that an entry stands for; that of a directory ends in a separator. A plain path that has
// nothing from column 255 on stands for itself.
std::string EntryPath(const std::string& entry, const PathSyntax& syntax);

}  // namespace quorvale
