#pragma once

#include <string>
#include <vector>

#include "platform/desktop/system/settings_location.h"
#include "platform/desktop/system/sqlite_registry.h"
#include "settings/reg_settings.h"

namespace quorvale {

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
