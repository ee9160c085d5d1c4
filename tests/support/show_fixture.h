#pragma once

#include <functional>
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

  void Moves(WindowHandle window, int count) {
    for (; count > 0 && form_->IsLoaded(); --count) desktop.MoveMouse(window, 5, 5);
  }

  // What happens in a show, and whether it ends the show.
  struct Ending {
    const char* what;
    std::function<void()> act;
    bool ends;
  };
  // A show for each. `check` gets `ends`.
  void CheckEndings(const std::vector<Ending>& cases, const std::function<void(bool)>& check) {
    for (const auto& [what, act, ends] : cases) {
      SCOPED_TRACE(what);
      process.show.stop_requested = false;
      process.show.mouse_move_count = 0;
      Start();
      FirstTick();
      act();
      EXPECT_EQ(form_->IsLoaded(), !ends);
      check(ends);
      form_->Unload();
      EXPECT_EQ(desktop.queue.RunningTimers(), 0);
    }
  }

  std::string Position() const { return process.options.Get("LastPicture", "none"); }
  Pixel At(int x, int y) { return RgbAt(form_->PicBase.Pixels(), x, y); }

  std::shared_ptr<MainForm> form_;
};

}  // namespace quorvale
