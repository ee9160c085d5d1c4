#pragma once

#include <string>

namespace quorvale {

// The user's home, without a separator at its end; empty for a user without one.
std::string HomeDirectory();

// The directory that holds the user's settings, without a separator at its end: quorvale below
// $XDG_CONFIG_HOME, by default below ~/.config. Empty for a user without a home. It need not exist.
std::string SettingsDirectory();

// Creates `directory` and what is missing above it, open to the user alone. False when it isn't there then.
bool CreateDirectories(const std::string& directory);

}  // namespace quorvale
