#pragma once

#include <memory>

#include "config/about_form.h"
#include "config/config_form.h"
#include "config/options_form.h"
#include "process/process.h"

namespace quorvale {

// Opens the program's dialogs one after the other and calls `visit` with each: the configuration window with either
// list, the options with each page, and the about box.
template <typename Visit>
void VisitDialogs(Process& process, Visit visit) {
  process.mode = RunMode::kConfiguration;
  process.screen_twips_x = process.screen_twips_y = 15;
  const auto configuration = std::make_shared<ConfigForm>(process);
  configuration->Show();
  visit(*configuration);
  configuration->menus.Item("mnuViewSounds").UserClick();
  visit(*configuration);
  configuration->Unload();
  const auto options = std::make_shared<OptionsForm>(process);
  options->Show();
  auto& tabs = options->Find<TabStrip>("TabStrip1");
  for (std::size_t page = 1; page <= tabs.Tabs().size(); ++page) {
    tabs.UserSelect(static_cast<int>(page));
    visit(*options);
  }
  options->Unload();
  const auto about = std::make_shared<AboutForm>(process);
  about->Show();
  visit(*about);
  about->Unload();
}

}  // namespace quorvale
