#include "playlist/list_store.h"

#include <utility>

#include "settings/reg_settings.h"
#include "toolkit/list_box.h"

namespace quorvale {

void SaveList(CRegSettings& settings, const ListBox& list, const std::string& section, const std::string& prefix) {
  // Without the section no key of a longer earlier list survives.
  settings.DeleteSetting(section, "", kHkeyCurrentUser);
  for (int i = 0; i < list.ListCount(); ++i) {
    settings.SaveSetting(section, prefix + std::to_string(i), list.List(i), kHkeyCurrentUser);
  }
}

void LoadList(CRegSettings& settings, ListBox& list, const std::string& section, const std::string& prefix) {
  for (int i = 0;; ++i) {
    std::string entry = settings.GetSetting(section, prefix + std::to_string(i), kEndOfList, kHkeyCurrentUser);
    if (entry == kEndOfList) return;
    list.AddItem(std::move(entry));
  }
}

}  // namespace quorvale
