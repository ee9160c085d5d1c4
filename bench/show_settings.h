#pragma once

#include <string>
#include <vector>

#include "platform/desktop/system/settings_location.h"
#include "platform/desktop/system/sqlite_registry.h"
#include "settings/reg_settings.h"

namespace quorvale {

// The effects by their names, with the drawing calls that each makes a step.
struct NamedEffect {
  const char* name = "";
  int calls_a_step = 1;
};
inline constexpr NamedEffect kNamedEffects[] = {
    {"Sweep Right"},
    {"Sweep Left"},
    {"Sweep Down"},
    {"Sweep Up"},
    {"Spotlight"},
    {"Bubbles"},
    {"Horizontal Sandwich", 2},
    {"Vertical Sandwich", 2},
    {"Shrinking Square", 4},
};

struct ShowSettings {
  std::vector<std::string> pictures;
  std::string effect = "None";
  bool stretch = true;
  int interval = 60;  // seconds
  int speed = 20;
};

// The store from which this process's shows and those of the programs that it starts take their options.
class ShowStore {
 public:
  // The next show begins with the first picture.
  void Set(const ShowSettings& show);
  void SetOption(const std::string& key, const std::string& value);
  // How many pictures have been shown, as long as the list has not come to its end.
  int PicturesShown();

 private:
  SqliteRegistry registry_{SettingsDirectory()};
  CRegSettings settings_{registry_};
};

}  // namespace quorvale
