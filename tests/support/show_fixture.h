#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/failure.h"
#include "playlist/list_entry.h"
#include "process/process.h"
#include "saver/main_form.h"
#include "support/headless_fixture.h"

namespace quorvale {

// A show on a desktop of its own: 800 by 600 pixels, 12000 by 9000 twips.
class ShowTest : public HeadlessTest {
 protected:
  Process process{desktop, desktop.Services()};

  void SetUp() override { process.options.Set("SwapAffect", "None"); }

  void SetOptions(const std::map<std::string, std::string>& options) {
    for (const auto& [key, value] : options) process.options.Set(key, value);
  }

  // Puts files C:\P0.jpg, C:\P1.jpg and so on in the picture list, each a picture of that content.
  void Pictures(const std::vector<std::string>& contents) {
    for (std::size_t i = 0; i < contents.size(); ++i) {
      const std::string name = "P" + std::to_string(i) + ".jpg";
      desktop.files.AddFile("C:\\" + name, contents[i]);
      process.settings.SaveSetting("PictureFiles", "File" + std::to_string(i), MakeListEntry(name, "C:\\"));
    }
  }

  // Puts C:\S0.wav and so on in the sound list.
  void Sounds(int count) {
    for (int i = 0; i < count; ++i) {
      const std::string number = std::to_string(i);
      process.settings.SaveSetting("SoundFiles", "File" + number, MakeListEntry("S" + number + ".wav", "C:\\"));
    }
  }

  // Shows the form as the show's start does.
  MainForm& Start() {
    process.mode = RunMode::kShow;
    form_ = std::make_shared<MainForm>(process);
    form_->Show();
    return *form_;
  }

  // Waits for the first tick, or for the next.
  void FirstTick() { desktop.queue.Advance(500); }
  void NextTick() { desktop.queue.Advance(form_->tmrSwitch.Interval()); }

  std::string Position() const { return process.options.Get("LastPicture", "none"); }
  Pixel At(int x, int y) { return RgbAt(form_->PicBase.Pixels(), x, y); }

  std::shared_ptr<MainForm> form_;
};

}  // namespace quorvale
