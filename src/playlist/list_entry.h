#pragma once

#include <string>

#include "system/path_syntax.h"

namespace quorvale {

// The width of a play list entry in characters. An entry has two fields padded with blanks: the file name, then from
// column 256 its directory. An entry for a whole directory has the directory in both fields and ends in a separator.
inline constexpr int kListEntryColumns = 512;
inline constexpr int kListEntryDirectoryColumn = 256;

// Fields that are too long are cut: the directory overwrites the tail of a long name.
std::string MakeListEntry(const std::string& name, const std::string& directory);

// The path of an entry; a directory's ends in a separator. A text that is blank from column 255 on is taken as a plain
// path.
std::string EntryPath(const std::string& entry, const PathSyntax& syntax);

}  // namespace quorvale
