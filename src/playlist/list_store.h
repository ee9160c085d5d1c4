#pragma once

#include <string>

namespace quorvale {

class CRegSettings;
class ListBox;

// The text that marks the end of a stored list: the default of the read, so that the first number
// without a key ends the list. It is never written.
inline constexpr char kEndOfList[] = "EOF";

// How much of a stored list a list box has taken.
enum class TakenPart {
  kAll,
  kFirst,   // as much as a list box holds; more is stored behind it
  kUnread,  // less than is stored, since the store could not be read
};

// Replaces a section of the store by the items of a list box, under the keys `prefix` and a number. What can't be
// written stays as it is, without a word.
void SaveList(CRegSettings& settings, const ListBox& list, const std::string& section, const std::string& prefix);

// The same for a list of which the box has taken the first part: the entries behind that part stay, and stand behind
// the items then.
void SaveFirstPart(CRegSettings& settings, const ListBox& list, const std::string& section, const std::string& prefix);

// Appends a section's values to a list box, up to the end of either.
TakenPart LoadList(CRegSettings& settings, ListBox& list, const std::string& section, const std::string& prefix);

}  // namespace quorvale
