#pragma once

#include <string>

namespace quorvale {

class CRegSettings;
class ListBox;

// The text that marks the end of a stored list: the default of the read, so that the first number
// without a key ends the list. It is never written.
inline constexpr char kEndOfList[] = "EOF";

// Replaces a section of the store by the items of a list box, under the keys `prefix` and a number.
void SaveList(CRegSettings& settings, const ListBox& list, const std::string& section, const std::string& prefix);

// Appends a section's values to a list box. Fails with kListFull when they do not fit.
void LoadList(CRegSettings& settings, ListBox& list, const std::string& section, const std::string& prefix);

}  // namespace quorvale
