#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/text.h"
#include "config/config_form.h"
#include "playlist/list_entry.h"
#include "process/process.h"
#include "support/headless_fixture.h"

namespace quorvale {

// The configuration window on a desktop of its own, over lists in the settings store.
class ConfigTest : public HeadlessTest {
 protected:
  Process process{desktop, desktop.Services()};
  std::shared_ptr<frmConfig> form;

  void SetUp() override {
    process.RunMode = "/C";
    process.ScreenTwipsX = 15;
    process.ScreenTwipsY = 15;
    process.SetOption("SwapAffect", "None");
  }

  // Stores files of C:\Pics\ with those names, which exist, in one of the two lists.
  void Store(const std::string& section, const std::vector<std::string>& names) {
    process.Settings.DeleteSetting(section);
    for (std::size_t i = 0; i < names.size(); ++i) {
      desktop.files.AddFile("C:\\Pics\\" + names[i]);
      process.Settings.SaveSetting(section, "File" + std::to_string(i), MakeListEntry(names[i], "C:\\Pics\\"));
    }
  }
  std::vector<std::string> Stored(const std::string& section) {
    std::vector<std::string> names;
    for (std::string entry;; names.push_back(NameOf(entry))) {
      entry = process.Settings.GetSetting(section, "File" + std::to_string(names.size()), "EOF");
      if (entry == "EOF") return names;
    }
  }

  frmConfig& Open() {
    form = std::make_shared<frmConfig>(process);
    form->Show();
    return *form;
  }
  frmConfig& OpenWith(const std::vector<std::string>& pictures, const std::vector<std::string>& sounds = {}) {
    Store("PictureFiles", pictures);
    Store("SoundFiles", sounds);
    return Open();
  }

  // The name part of each item of a list.
  std::vector<std::string> Names(int list) {
    std::vector<std::string> names;
    const ListBox& box = form->lstList.at(static_cast<std::size_t>(list));
    for (int i = 0; i < box.ListCount(); ++i) names.push_back(NameOf(box.List(i)));
    return names;
  }
  void Select(const std::vector<int>& indices) { form->ListOnView().UserSelect(indices); }
  void Press(int button) { form->cmdImages.at(static_cast<std::size_t>(button)).UserClick(); }
  void Choose(const std::string& item) { form->Menus.Item(item).UserClick(); }
  bool ItemEnabled(const std::string& item) { return form->Menus.Item(item).Enabled(); }
  bool IsPaused() { return !form->tmrSwitch.Enabled(); }

  // Whether what `command` does restarts the show: that alone sets this interval.
  bool Restarts(const std::function<void()>& command) {
    form->tmrSwitch.SetInterval(4321);
    command();
    return form->tmrSwitch.Interval() == 500;
  }

 private:
  static std::string NameOf(const std::string& entry) { return Trim(Left(entry, 254)); }
};

}  // namespace quorvale
