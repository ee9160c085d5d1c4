// Measures decoding, the drawing of effects, and lists. Nothing here needs a screen, so that the figures of two
// platforms can be compared. The arguments are the pictures to decode, and directories, each ending in "/", to list.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/paths.h"
#include "base/random.h"
#include "measure.h"
#include "platform/headless/headless_desktop.h"
#include "playlist/list_entry.h"
#include "playlist/media_collections.h"
#include "portable/platform_parts.h"
#include "process/process.h"
#include "report.h"
#include "saver/main_form.h"
#include "settings/reg_settings.h"
#include "toolkit/bitmap.h"
#include "toolkit/picture.h"
#include "transitions/effects.h"
#include "transitions/run_transition.h"

namespace quorvale {
namespace {

constexpr int kRounds = 5;
constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kFirstTick = 500;  // milliseconds
constexpr PixelRect kScreen{.width = kWidth, .height = kHeight};

void MeasureDecoding(Report& report, PictureLoader& loader, const std::vector<std::string>& paths) {
  report.Begin("Loading and painting at 1920x1080, ms", {{"stretched"}, {"own size"}});
  Bitmap screen(kWidth, kHeight, 0);
  const auto load = [&](const std::string& path, bool stretched) {
    const auto box = [stretched](const TwipSize& natural) {
      return stretched ? kScreen : ToPixels({.width = natural.width, .height = natural.height}, 1);
    };
    return MillisecondsOf([&] {
      const auto picture = loader.Load(path, {.box = box, .clip = kScreen});
      picture->Paint(screen.View(), box(picture->NaturalSize(1)), kScreen);
    });
  };
  for (const std::string& path : paths) {
    report.Row(path.substr(NameStart(path, "/\\")),
               AlternatingMedians(kRounds, {[&] { return load(path, true); }, [&] { return load(path, false); }}));
  }
}

// The drawing alone: on the headless platform passes take no time.
void MeasureEffects(Report& report) {
  HeadlessDesktop desktop;
  desktop.SetScreen(kWidth, kHeight);
  Process process(desktop, desktop.Services());
  process.mode = RunMode::kShow;
  process.options.Set("Stretch", "1");
  desktop.files.AddFile("C:\\Picture.jpg", "picture 1920 1080 ff0000");
  process.settings.SaveSetting(kPictureSection, "File0", MakeListEntry("Picture.jpg", "C:\\"));
  const auto form = std::make_shared<MainForm>(process);
  form->Show();
  desktop.queue.Advance(kFirstTick);
  process.options.Set("BackColor", "255");
  process.show.transition_speed = 20;
  report.Begin("Drawing an effect at 1920x1080, ms", {{"whole effect"}});
  for (const Effect& effect : Effects()) {
    process.options.Set("SwapAffect", std::string(effect.name));
    const auto run = [&] {
      form->PicBase.SetBackColor(kWhite);
      form->PicBase.SetFillColor(kBlack);
      form->PicBase.Cls();
      desktop.presentations.clear();
      return MillisecondsOf([&] { RunTransition(process, form->PicBase, form->PicPreview); });
    };
    report.Row(std::string(effect.name), AlternatingMedians(kRounds, {run}));
  }
}

void MeasureLists(Report& report, Registry& registry) {
  constexpr int kEntries = 10'000;
  const std::string section = "Bench";
  CRegSettings settings(registry);
  const auto save = [&] {
    settings.DeleteSetting(section);
    return MillisecondsOf([&] {
      for (int i = 0; i < kEntries; ++i) {
        settings.SaveSetting(section, std::to_string(i), MakeListEntry(std::to_string(i) + ".jpg", "/pictures/"));
      }
    });
  };
  const auto load = [&] {
    return MillisecondsOf([&] {
      for (int i = 0; i < kEntries; ++i) settings.GetSetting(section, std::to_string(i));
    });
  };
  const auto shuffle = [] {
    std::vector<std::string> paths;
    paths.reserve(1'000'000);
    for (int i = 0; i < 1'000'000; ++i) paths.push_back("/pictures/" + std::to_string(i) + ".jpg");
    Collection collection(std::move(paths));
    Random random;
    return MillisecondsOf([&] { ShuffleCollection(collection, random); });
  };
  report.Begin("Lists, ms", {{"save 10,000"}, {"load 10,000"}, {"shuffle 1,000,000"}});
  report.Row("settings store, collection", AlternatingMedians(kRounds, {save, load, shuffle}));
  settings.DeleteSetting(section);
}

// `SubFolders` and `Order`, beside the least that any program does to read the tree.
void MeasureTree(Report& report, FileSystem& files, const std::string& directory) {
  Collection found;
  const auto list = [&] {
    found = {};
    return MillisecondsOf([&] { AddTreeFiles(files, found, directory, PictureMask()); });
  };
  const auto walk = [&] {
    return MillisecondsOf([&] {
      for (const auto& entry : std::filesystem::recursive_directory_iterator(directory)) (void)entry.is_directory();
    });
  };
  const auto sort = [&] {
    Collection sorted = found;
    return MillisecondsOf([&] { SortByDate(files, sorted, true); });
  };
  report.Begin("A tree of files, ms", {{"list"}, {"walk"}, {"ratio", 2}, {"by date"}, {"pictures", 0}});
  const std::vector<double> times = AlternatingMedians(kRounds, {list, walk, sort});
  report.Row("AddTreeFiles, SortByDate",
             {times[0], times[1], times[0] / times[1], times[2], static_cast<double>(found.Count())});
}

}  // namespace
}  // namespace quorvale

int main(int argc, char** argv) {
  using namespace quorvale;
  try {
    Report report("");
    const auto parts = MakePlatformParts();
    std::vector<std::string> pictures;
    std::vector<std::string> directories;
    for (const std::string path : std::span(argv, static_cast<std::size_t>(argc)).subspan(1)) {
      (path.ends_with('/') ? directories : pictures).push_back(path);
    }
    MeasureDecoding(report, parts->Pictures(), pictures);
    MeasureEffects(report);
    MeasureLists(report, parts->Store());
    for (const std::string& directory : directories) MeasureTree(report, parts->Files(), directory);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "quorvale-portable-bench: %s\n", failure.what());
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
