#pragma once

#include <string>

namespace quorvale {

class CRegSettings;
class ListBox;

// Marks the end of a stored list while it is read: the fallback for a key that is missing. It is never written.
inline constexpr char kEndOfList[] = "EOF";

// How much of a stored list is in its list box.
enum class LoadedPart {
  kAll,
  kFirst,   // the first part: the list box is full, and more is stored
  kUnread,  // unknown: the store could not be read to the end
};

// Replaces a section of the store by the items of a list box. Keys are `prefix` and a number. Write failures are
// ignored.
void SaveList(CRegSettings& settings, const ListBox& list, const std::string& section, const std::string& prefix);

// The same for a list box that holds only the first part of the stored list: the stored rest is kept and follows the
// items.
void SaveFirstPart(CRegSettings& settings, const ListBox& list, const std::string& section, const std::string& prefix);

// Appends the stored entries to a list box until the section ends or the box is full.
LoadedPart LoadList(CRegSettings& settings, ListBox& list, const std::string& section, const std::string& prefix);

}  // namespace quorvale
