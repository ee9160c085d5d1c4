#pragma once

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "base/text.h"
#include "config/config_form.h"
#include "playlist/list_entry.h"
#include "process/process.h"
#include "support/headless_fixture.h"

namespace quorvale {

// The configuration window on a desktop of its own. Lists are written as their names, divided by blanks.
class ConfigTest : public HeadlessTest {
 protected:
  Process process{desktop, desktop.Services()};
  std::shared_ptr<ConfigForm> form;

  void SetUp() override {
    process.mode = RunMode::kConfiguration;
    process.screen_twips_x = process.screen_twips_y = 15;
    process.options.Set("SwapAffect", "None");
  }

  // Opens the window over lists of files of C:\Pics\, which exist.
  ConfigForm& OpenWith(const std::string& pictures = "", const std::string& sounds = "") {
    Store("PictureFiles", pictures);
    Store("SoundFiles", sounds);
    return Open();
  }
  ConfigForm& Open() {
    form = std::make_shared<ConfigForm>(process);
    form->Show();
    return *form;
  }
  void Store(const std::string& section, const std::string& names) {
    process.settings.DeleteSetting(section);
    std::istringstream words(names);
    int i = 0;
    for (std::string name; words >> name; ++i) {
      desktop.files.AddFile("C:\\Pics\\" + name);
      process.settings.SaveSetting(section, "File" + std::to_string(i), MakeListEntry(name, "C:\\Pics\\"));
    }
  }

  std::string Stored(const std::string& section) {
    std::vector<std::string> names;
    for (std::string entry;; names.push_back(entry)) {
      entry = process.settings.GetSetting(section, "File" + std::to_string(names.size()), "EOF");
      if (entry == "EOF") return Joined(names);
    }
  }
  std::string Names(int list) {
    std::vector<std::string> names;
    const ListBox& box = form->lists.at(static_cast<std::size_t>(list));
    for (int i = 0; i < box.ListCount(); ++i) names.push_back(box.List(i));
    return Joined(names);
  }

  void Select(const std::vector<int>& indices) { form->VisibleList().UserSelect(indices); }
  void Press(int button) { form->list_buttons.at(static_cast<std::size_t>(button)).UserClick(); }
  void Choose(const std::string& item) { form->menus.Item(item).UserClick(); }
  bool IsPaused() { return !form->tmrSwitch.Enabled(); }
  // Whether `command` restarts the show: that alone sets this interval.
  bool Restarts(const std::function<void()>& command) {
    form->tmrSwitch.SetInterval(4321);
    command();
    return form->tmrSwitch.Interval() == 500;
  }

 private:
  static std::string Joined(const std::vector<std::string>& entries) {
    std::string text;
    for (const std::string& entry : entries) text += (text.empty() ? "" : " ") + Trim(Left(entry, 254));
    return text;
  }
};

}  // namespace quorvale
