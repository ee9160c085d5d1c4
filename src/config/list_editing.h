#pragma once

#include <string>

#include "system/path_syntax.h"

namespace quorvale {

class Collection;
class CommonDialog;
class ListBox;

// Splits the result of a file dialog into `names` and their directory, which ends in a separator. For multiple files a
// separator is always added, so a root directory ends in two.
void ParseFileSelection(const CommonDialog& dialog, const PathSyntax& syntax, Collection& names,
                        std::string& directory);

// The offset of the last element of a path; 0 if there is no separator.
std::size_t NameStart(const std::string& path, const PathSyntax& syntax);

// The position of the first selected item; also 0 if none is selected.
int FirstSelected(const ListBox& list);

// Removes the selected items and selects the first of those that remain.
void RemoveSelected(ListBox& list);

// Swaps the first selected item with the one `step` positions further on; the selection follows. Fails with
// kNoSuchEntry if there is no such item.
void MoveSelected(ListBox& list, int step);

}  // namespace quorvale
