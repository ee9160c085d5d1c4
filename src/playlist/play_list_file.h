#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "playlist/list_entry.h"
#include "toolkit/list_box.h"

namespace quorvale {

class FileSystem;

// What two full lists take at most, a character being up to four bytes and four more making a line of it. Of a file
// only as much is read, and one byte to tell a longer one.
inline constexpr std::size_t kMostPlayListBytes = std::size_t{2} * ListBox::kMostItems * (4 * kListEntryColumns + 4);

// A play list file holds both lists, pictures first, an item to a line that ends in CR LF: "P:" or "S:" and
// the item's whole text. It is written in UTF-8.
std::string PlayListText(const ListBox& pictures, const ListBox& sounds);

// Appends the items of a file's text to the lists: a line that begins with "P" is a picture, every other one a
// sound, from its third character on. LF or CR alone ends a line as well. A line that is no UTF-8 is in the
// machine's older code page. Fails with kListFull when the items do not fit or the text is longer than two full lists;
// the whole lines before stay.
void AppendPlayListText(std::string_view text, FileSystem& files, ListBox& pictures, ListBox& sounds);

}  // namespace quorvale
