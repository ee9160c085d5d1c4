#include "playlist/list_store.h"

#include <utility>

#include "settings/reg_settings.h"
#include "toolkit/list_box.h"

namespace quorvale {

namespace {

void SaveItems(CRegSettings& settings, const ListBox& list, const std::string& section, const std::string& prefix) {
  for (int i = 0; i < list.ListCount(); ++i) {
    settings.SaveSetting(section, prefix + std::to_string(i), list.List(i), kHkeyCurrentUser);
  }
}

}  // namespace

void SaveList(CRegSettings& settings, const ListBox& list, const std::string& section, const std::string& prefix) {
  // An earlier list may have been longer; its surplus entries must not stay.
  settings.DeleteSetting(section, "", kHkeyCurrentUser);
  SaveItems(settings, list, section, prefix);
}

void SaveFirstPart(CRegSettings& settings, const ListBox& list, const std::string& section, const std::string& prefix) {
  SaveItems(settings, list, section, prefix);
  int to = list.ListCount();
  if (to == ListBox::kMostItems) return;
  int from = ListBox::kMostItems;
  std::string entry;
  const auto key = [&prefix](int number) { return prefix + std::to_string(number); };
  for (; settings.ReadSetting(section, key(from), entry) == SettingRead::kFound && entry != kEndOfList; ++from) {
    settings.SaveSetting(section, key(to++), entry, kHkeyCurrentUser);
  }
  for (; to < from; ++to) settings.DeleteSetting(section, key(to), kHkeyCurrentUser);
}

LoadedPart LoadList(CRegSettings& settings, ListBox& list, const std::string& section, const std::string& prefix) {
  for (int i = 0;; ++i) {
    std::string entry;
    switch (settings.ReadSetting(section, prefix + std::to_string(i), entry, kHkeyCurrentUser)) {
      case SettingRead::kFailed:
        return LoadedPart::kUnread;
      case SettingRead::kMissing:
        return LoadedPart::kAll;
      case SettingRead::kFound:
        break;
    }
    if (entry == kEndOfList) return LoadedPart::kAll;
    if (list.ListCount() >= ListBox::kMostItems) return LoadedPart::kFirst;
    list.AddItem(std::move(entry));
  }
}

}  // namespace quorvale
