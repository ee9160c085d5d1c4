#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "playlist/list_entry.h"
#include "toolkit/list_box.h"

namespace quorvale {

class FileSystem;

// The most that two full lists need: up to four bytes per character, and four more per line. No more of a file is
// read, but for one byte that shows it to be longer.
inline constexpr std::size_t kMostPlayListBytes = std::size_t{2} * ListBox::kMostItems * (4 * kListEntryColumns + 4);

// The content of a play list file: UTF-8, one entry per line, CR LF at each line's end. A line is "P:" (picture) or
// "S:" (sound) and the entry's text. Pictures come first.
std::string PlayListText(const ListBox& pictures, const ListBox& sounds);

// Appends the entries of a file's text to the lists. A line that begins with "P" is a picture, any other a sound; the
// entry begins at the third character. Lines may also end in LF or CR alone. A line that is not UTF-8 is read in the
// machine's older code page. Fails with kListFull when the entries do not fit or the text is longer than two full
// lists; the complete lines before that stay.
void AppendPlayListText(std::string_view text, FileSystem& files, ListBox& pictures, ListBox& sounds);

}  // namespace quorvale
