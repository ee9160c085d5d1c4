#pragma once

#include <string>
#include <string_view>

namespace quorvale {

class FileSystem;
class ListBox;

// A play list file holds both lists, pictures first, an item to a line that ends in CR LF: "P:" or "S:" and
// the item's whole text. It is written in UTF-8.
std::string PlayListText(const ListBox& pictures, const ListBox& sounds);

// Appends the items of a file's text to the lists: a line that begins with "P" is a picture, every other one a
// sound, from its third character on. LF or CR alone ends a line as well. A line that is no UTF-8 is in the
// machine's older code page. Fails with kListFull when the items do not fit; those before stay.
void AppendPlayListText(std::string_view text, FileSystem& files, ListBox& pictures, ListBox& sounds);

}  // namespace quorvale
