#pragma once

#include <string>

#include "system/path_syntax.h"

namespace quorvale {

class Collection;
class CommonDialog;
class ListBox;

// What a file dialog chose: adds the names to `names` and gives their directory, with a separator at its end.
// Several files always get one more separator than their directory came with, so that a root ends in two.
void ParseFileSelection(const CommonDialog& dialog, const PathSyntax& syntax, Collection& names,
                        std::string& directory);

// Where the last element of a path begins; 0 when nothing divides it.
std::size_t NameStart(const std::string& path, const PathSyntax& syntax);

// The position of the first selected item, and also 0 when none is selected.
int FirstSelected(const ListBox& list);

// Removes the selected items and selects the first of those that remain.
void RemoveSelected(ListBox& list);

// Exchanges the text of the first selected item with that of the item `step` places further on, and moves the
// selection along. Fails with kNoSuchEntry where there is no such item.
void MoveSelected(ListBox& list, int step);

}  // namespace quorvale
