#include <QCoreApplication>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench_files.h"
#include "config/artwork.h"
#include "config/config_form.h"
#include "groups.h"
#include "live_show.h"
#include "measure.h"
#include "platform/desktop/toolkit/x11_session.h"
#include "playlist/list_entry.h"
#include "playlist/media_collections.h"
#include "processes.h"
#include "yardstick/yardstick.h"

namespace quorvale {
namespace {

constexpr int kFiles = 100'000;
constexpr int kEntries = 10'000;
constexpr int kEntriesAtStart = 1'000;
constexpr int kNoTick = 60'000;  // milliseconds

std::vector<std::string> Entries(int count) {
  const std::string directory = DirectoryOfFiles(kFiles) + "/";
  std::vector<std::string> entries;
  for (int i = 0; i < count; ++i) {
    char name[32];
    std::snprintf(name, sizeof name, "IMG_%06d.JPG", i * 10);
    entries.push_back(MakeListEntry(name, directory));
  }
  return entries;
}

// The configuration window on the real screen, in this process.
class LiveWindow {
 public:
  LiveWindow() : form_(Open()) {}
  ~LiveWindow() { form_->Unload(); }
  LiveWindow(const LiveWindow&) = delete;
  LiveWindow& operator=(const LiveWindow&) = delete;

  Process& Core() { return desktop_.core; }
  ConfigForm& Form() { return *form_; }
  ListBox& List() { return form_->lists[0]; }

  void Fill(const std::vector<std::string>& entries) {
    List().Clear();
    for (const std::string& entry : entries) List().AddItem(entry);
    Present();
  }

  // The time from a command until its result is on the screen. No tick comes in between.
  double MillisecondsUntilShown(const std::function<void()>& command) {
    Present();
    return MillisecondsOf([&] {
      command();
      form_->PausePreview(true);
      Present();
    });
  }

  // Lets the preview's timer fire. The time from its event until the picture is shown.
  double Tick() {
    bool ticked = false;
    Stopwatch since_event;
    const auto tick = form_->tmrSwitch.Elapsed;
    form_->tmrSwitch.Elapsed = [&] {
      since_event = Stopwatch();
      tick();
      ticked = true;
    };
    form_->tmrSwitch.SetEnabled(true);
    form_->tmrSwitch.SetInterval(1);
    while (!ticked) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    Present();
    const double milliseconds = since_event.Milliseconds();
    form_->tmrSwitch.SetInterval(kNoTick);
    form_->tmrSwitch.Elapsed = tick;
    return milliseconds;
  }

 private:
  std::shared_ptr<ConfigForm> Open() {
    desktop_.core.mode = RunMode::kConfiguration;
    desktop_.core.screen_twips_x = static_cast<std::int16_t>(kTwipsPerPixel);
    desktop_.core.screen_twips_y = static_cast<std::int16_t>(kTwipsPerPixel);
    auto form = std::make_shared<ConfigForm>(desktop_.core);
    form->Show();
    return form;
  }

  void Present() {
    Core().app.PumpEvents();
    RoundTrip(X11Connection());
  }

  DesktopProcess desktop_;
  std::shared_ptr<ConfigForm> form_;
};

void MeasureOpening(Bench& bench, int rounds) {
  ShowStore().Set({.pictures = Entries(kEntriesAtStart)});
  const auto open = [&] {
    ClearScreen(bench.display);
    const Stopwatch since_start;
    const ChildProgram program({BuiltProgram("quorvale"), "/C"});
    WaitUntil("the window", [&] { return bench.display.Centre() != kBareScreen; });
    return since_start.Milliseconds();
  };
  bench.report.Begin("From the start to the configuration window with 1,000 entries, ms", {{"painted"}});
  bench.report.Row("quorvale /C", AlternatingMedians(rounds, {open}));
}

void MeasureFiles(Bench& bench, LiveWindow& window, int rounds) {
  ConfigForm& form = window.Form();
  const std::vector<std::string> entries = Entries(kEntries);
  const std::string file = BenchDirectory("play lists") + "/10000.qvl";
  window.Fill(entries);
  form.WritePlayListFile(file);
  const auto times = AlternatingMedians(
      rounds, {
                  [&] { return MillisecondsOf([&] { form.SavePlayLists(); }); },
                  [&] {
                    window.List().Clear();
                    return MillisecondsOf([&] { form.LoadPlayLists(); });
                  },
                  [&] { return MillisecondsOf([&] { PruneMissing(window.Core().system.files, window.List()); }); },
                  [&] { return MillisecondsOf([&] { form.WritePlayListFile(file); }); },
                  [&] {
                    window.List().Clear();
                    return MillisecondsOf([&] { form.ReadPlayListFile(file); });
                  },
              });
  bench.report.Begin("10,000 entries in the window, ms",
                     {{"to store"}, {"from store"}, {"prune"}, {"write file"}, {"read file"}});
  bench.report.Row("play lists", times);
}

void MeasureCommands(Bench& bench, LiveWindow& window, int rounds) {
  const std::vector<std::string> entries = Entries(kEntries);
  const std::string path = TestPicture(kTestSizes[0], 0);
  std::vector<int> every_other;
  for (int i = 0; i < kEntries; i += 2) every_other.push_back(i);
  const auto press = [&](int button, std::vector<int> selected) {
    return [&window, &entries, button, selected = std::move(selected)] {
      window.Fill(entries);
      window.List().UserSelect(selected);
      return window.MillisecondsUntilShown(
          [&] { window.Form().list_buttons.at(static_cast<std::size_t>(button)).UserClick(); });
    };
  };
  const auto times =
      AlternatingMedians(rounds, {
                                     [&] {
                                       window.Fill(entries);
                                       return window.MillisecondsUntilShown([&] { window.List().UserDrop({path}); });
                                     },
                                     press(kRemove, {5000}),
                                     press(kRemove, every_other),
                                     press(kMoveUp, {5000}),
                                     press(kMoveDown, {5000}),
                                 });
  bench.report.Begin("A command on 10,000 entries until it is on the screen, ms",
                     {{"add"}, {"remove 1"}, {"remove 5,000"}, {"up"}, {"down"}});
  bench.report.Row("list commands", times);
}

void MeasurePane(Bench& bench, LiveWindow& window, int rounds) {
  const PictureSize& size = kTestSizes[2];
  const std::string path = TestPicture(size, 0);
  window.Core().show.picture_list = Collection({path});
  const auto tick = [&window](const char* stretch) {
    return [&window, stretch] {
      window.Core().options.Set("Stretch", stretch);
      return window.Tick();
    };
  };
  const int divisor = NearestDivisor(size.width, size.height, kMonitorScreenWidth, kMonitorScreenHeight);
  const auto times = AlternatingMedians(rounds, {
                                                    tick("1"),
                                                    tick("0"),
                                                    [&] { return MillisecondsOf([&] { DecodeOnly(path, divisor); }); },
                                                    [&] { return MillisecondsOf([&] { DecodeOnly(path, 1); }); },
                                                });
  bench.report.Begin("A tick of the pane, 24 MP, effect None, ms",
                     {{"on"}, {"off"}, {"decode/n"}, {"decode"}, {"on:decode/n", 2}, {"off:decode/n", 2}});
  bench.report.Row(size.name, {times[0], times[1], times[2], times[3], times[0] / times[2], times[1] / times[2]});
}

}  // namespace

void MeasureConfiguration(Bench& bench) {
  const int rounds = bench.quick ? 3 : 9;
  MeasureOpening(bench, rounds);
  ShowStore().Set({});
  LiveWindow window;
  MeasureFiles(bench, window, rounds);
  MeasureCommands(bench, window, rounds);
  MeasurePane(bench, window, rounds);
}

}  // namespace quorvale
