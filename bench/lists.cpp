#include <dirent.h>
#include <fcntl.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/random.h"
#include "bench_files.h"
#include "groups.h"
#include "live_show.h"
#include "measure.h"
#include "playlist/list_entry.h"
#include "playlist/media_collections.h"

namespace quorvale {
namespace {

constexpr int kFiles = 100'000;
constexpr int kFolders = 2000;
constexpr int kEntries = 10'000;

struct CloseDirectory {
  void operator()(DIR* stream) const { closedir(stream); }
};

int CountByReaddir(const std::string& directory) {
  const std::unique_ptr<DIR, CloseDirectory> stream(opendir(directory.c_str()));
  int count = 0;
  while (stream && readdir(stream.get()) != nullptr) ++count;
  return count;
}

void MeasureDirectory(Bench& bench, Process& core, int rounds) {
  const std::string directory = DirectoryOfFiles(kFiles) + "/";
  int found = 0;
  const auto times =
      AlternatingMedians(rounds, {
                                     [&] {
                                       return MillisecondsOf([&] {
                                         Collection collection;
                                         AddDirectoryFiles(core.system.files, collection, directory, PictureMask());
                                         found = collection.Count();
                                       });
                                     },
                                     [&] { return MillisecondsOf([&] { CountByReaddir(directory); }); },
                                 });
  bench.report.Begin("A directory of 100,000 files, ms", {{"list"}, {"readdir"}, {"ratio", 2}, {"pictures", 0}});
  bench.report.Row("AddDirectoryFiles", {times[0], times[1], times[0] / times[1], static_cast<double>(found)});
}

// Takes over the descriptor.
int CountTree(int directory) {
  const std::unique_ptr<DIR, CloseDirectory> stream(fdopendir(directory));
  int count = 0;
  while (const dirent* const entry = stream ? readdir(stream.get()) : nullptr) {
    if (entry->d_type == DT_REG) ++count;
    const std::string_view name = entry->d_name;
    if (entry->d_type != DT_DIR || name == "." || name == "..") continue;
    count += CountTree(openat(dirfd(stream.get()), entry->d_name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  }
  return count;
}

void MeasureTree(Bench& bench, Process& core, int rounds) {
  const std::string directory = DirectoryOfFiles(kFiles, kFolders) + "/";
  int found = 0;
  const auto list = [&] {
    return MillisecondsOf([&] {
      Collection collection;
      AddTreeFiles(core.system.files, collection, directory, PictureMask());
      found = collection.Count();
    });
  };
  const auto plain = [&] {
    return MillisecondsOf([&] { CountTree(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)); });
  };
  const auto times = AlternatingMedians(rounds, {list, plain});
  bench.report.Begin("A tree of 100,000 files in 2,000 folders, ms",
                     {{"list"}, {"readdir"}, {"ratio", 2}, {"pictures", 0}});
  bench.report.Row("AddTreeFiles", {times[0], times[1], times[0] / times[1], static_cast<double>(found)});
}

void MeasureDates(Bench& bench, Process& core, int rounds) {
  Collection found;
  AddTreeFiles(core.system.files, found, DirectoryOfFiles(kFiles, kFolders) + "/", "*");
  const auto sort = [&] {
    Collection collection = found;
    return MillisecondsOf([&] { SortByDate(core.system.files, collection, true); });
  };
  bench.report.Begin("The order of 100,000 files by date, ms", {{"sort"}, {"files", 0}});
  bench.report.Row("SortByDate", {AlternatingMedians(rounds, {sort})[0], static_cast<double>(found.Count())});
}

double MillisecondsToShuffle(int count) {
  std::vector<std::string> paths;
  paths.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) paths.push_back("/pictures/IMG_" + std::to_string(i) + ".jpg");
  Collection collection(std::move(paths));
  Random random;
  return MillisecondsOf([&] { ShuffleCollection(collection, random); });
}

void MeasureShuffling(Bench& bench, int rounds) {
  const auto times = AlternatingMedians(rounds, {
                                                    [] { return MillisecondsToShuffle(100'000); },
                                                    [] { return MillisecondsToShuffle(1'000'000); },
                                                });
  bench.report.Begin("Shuffling, ms", {{"100,000"}, {"1,000,000"}});
  bench.report.Row("ShuffleCollection", times);
}

void SaveEntries(Process& core) {
  core.settings.DeleteSetting(kPictureSection);
  for (int i = 0; i < kEntries; ++i) {
    core.settings.SaveSetting(kPictureSection, kFileKeyPrefix + std::to_string(i),
                              MakeListEntry("IMG_" + std::to_string(i) + ".jpg", "/home/user/pictures/"));
  }
}

void MeasureStore(Bench& bench, Process& core, int rounds) {
  const auto times = AlternatingMedians(
      rounds, {
                  [&] { return MillisecondsOf([&] { SaveEntries(core); }); },
                  [&] {
                    return MillisecondsOf(
                        [&] { FillFromSettings(core.settings, core.system.files, kPictureSection, PictureMask()); });
                  },
              });
  bench.report.Begin("10,000 list entries in the settings store, ms", {{"save"}, {"load"}});
  bench.report.Row("SaveSetting, FillFromSettings", times);
}

}  // namespace

void MeasureLists(Bench& bench) {
  const int rounds = bench.quick ? 3 : 9;
  DesktopProcess process;
  MeasureDirectory(bench, process.core, rounds);
  MeasureTree(bench, process.core, rounds);
  MeasureDates(bench, process.core, rounds);
  MeasureShuffling(bench, rounds);
  MeasureStore(bench, process.core, rounds);
}

}  // namespace quorvale
