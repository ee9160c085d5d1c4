#include "playlist/media_collections.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "base/numbers.h"
#include "base/random.h"
#include "base/text.h"
#include "playlist/list_entry.h"
#include "playlist/list_store.h"
#include "settings/reg_settings.h"
#include "system/file_system.h"
#include "toolkit/list_box.h"
#include "toolkit/picture.h"

namespace quorvale {
namespace {

std::vector<std::string> PatternsOf(std::string mask) {
  std::vector<std::string> patterns;
  for (std::string pattern = CutToken(mask, ';'); !pattern.empty(); pattern = CutToken(mask, ';')) {
    patterns.push_back(std::move(pattern));
  }
  return patterns;
}

void AddEntry(FileSystem& files, Collection& collection, const std::string& entry, const std::string& mask,
              bool sub_folders) {
  const PathSyntax syntax = files.Syntax();
  std::string path = EntryPath(entry, syntax);
  if (path.empty() || !syntax.IsSeparator(path.back())) {
    collection.Add(std::move(path));
  } else if (sub_folders) {
    AddTreeFiles(files, collection, path, mask);
  } else {
    AddDirectoryFiles(files, collection, path, mask);
  }
}

// The entries not drawn yet, as a binary indexed tree of counts. Finding and removing the k-th takes O(log n);
// erasing from a vector would take O(n).
class Remaining {
 public:
  explicit Remaining(std::size_t count) : counts_(count + 1), highest_step_(std::bit_floor(count)) {
    for (std::size_t node = 1; node <= count; ++node) counts_[node] = node & (~node + 1);
  }

  // Removes the entry at `position` (from 1) among those that remain. Returns its index (from 0) among all.
  std::size_t Take(std::size_t position) {
    std::size_t place = 0;
    for (std::size_t step = highest_step_; step > 0; step /= 2) {
      const std::size_t next = place + step;
      if (next < counts_.size() && counts_[next] < position) {
        place = next;
        position -= counts_[next];
      }
    }
    for (std::size_t node = place + 1; node < counts_.size(); node += node & (~node + 1)) --counts_[node];
    return place;
  }

 private:
  std::vector<std::size_t> counts_;
  std::size_t highest_step_;
};

}  // namespace

std::string PictureMask(bool more_kinds) {
  std::string mask;
  for (const PictureFormat& format : kPictureFormats) {
    if (format.is_further_kind && !more_kinds) continue;
    if (!mask.empty()) mask += ';';
    mask += format.patterns;
  }
  return mask;
}

Collection FillFromList(FileSystem& files, const ListBox& list, const std::string& mask, bool sub_folders) {
  Collection collection;
  for (int i = 0; i < list.ListCount(); ++i) AddEntry(files, collection, list.List(i), mask, sub_folders);
  return collection;
}

Collection FillFromSettings(CRegSettings& settings, FileSystem& files, const std::string& section,
                            const std::string& mask, bool sub_folders) {
  Collection collection;
  for (int counter = 0;; ++counter) {
    const std::string entry =
        settings.GetSetting(section, kFileKeyPrefix + std::to_string(counter), kEndOfList, kHkeyCurrentUser);
    if (entry == kEndOfList) return collection;
    AddEntry(files, collection, entry, mask, sub_folders);
  }
}

void AddDirectoryFiles(FileSystem& files, Collection& collection, const std::string& directory,
                       const std::string& mask) {
  try {
    files.EnumerateFiles(directory, PatternsOf(mask),
                         [&](const std::string& name) { collection.Add(directory + name); });
  } catch (const Failure&) {
    // The drive may be gone. The rest of the list plays.
  }
}

void AddTreeFiles(FileSystem& files, Collection& collection, const std::string& directory, const std::string& mask) {
  const std::vector<std::string> patterns = PatternsOf(mask);
  const char separator = files.Syntax().separator;
  std::set<DirectoryId> visited;
  // The next one is at the back. Recursion could overflow the stack in a deep tree.
  std::vector<std::string> pending = {directory};
  while (!pending.empty()) {
    const std::string folder = std::move(pending.back());
    pending.pop_back();
    try {
      const DirectoryId id = files.IdOf(folder);
      // Without file numbers, a loop of links ends when its path is too long.
      if (id.number != 0 && !visited.insert(id).second) continue;
      std::vector<std::string> names =
          files.EnumerateFolder(folder, patterns, [&](const std::string& name) { collection.Add(folder + name); });
      std::reverse(names.begin(), names.end());
      for (const std::string& name : names) pending.push_back(folder + name + separator);
    } catch (const Failure&) {
      // It may be locked, or gone by now. The rest of the tree plays.
    }
  }
}

void SortByDate(FileSystem& files, Collection& collection, bool newest_first) {
  struct DatedPath {
    std::optional<std::int64_t> date;
    std::string path;
  };
  std::vector<std::string> paths = collection.TakeItems();
  const std::vector<std::optional<std::int64_t>> dates = files.DatesOf(paths);
  std::vector<DatedPath> dated;
  dated.reserve(paths.size());
  for (std::size_t i = 0; i < paths.size(); ++i) dated.push_back({dates[i], std::move(paths[i])});
  std::ranges::stable_sort(dated, [newest_first](const DatedPath& a, const DatedPath& b) {
    if (!a.date || !b.date) return a.date.has_value() && !b.date.has_value();
    return newest_first ? *a.date > *b.date : *a.date < *b.date;
  });
  for (DatedPath& item : dated) collection.Add(std::move(item.path));
}

void ShuffleCollection(Collection& collection, Random& random) {
  std::vector<std::string> source = collection.TakeItems();
  Remaining remaining(source.size());
  std::vector<std::string> shuffled;
  shuffled.reserve(source.size());
  for (std::size_t count = source.size(); count > 0; --count) {
    const double position = static_cast<double>(random.Next()) * static_cast<double>(count - 1) + 1;
    shuffled.push_back(std::move(source[remaining.Take(static_cast<std::size_t>(RoundToInt32(position)))]));
  }
  collection = Collection(std::move(shuffled));
}

}  // namespace quorvale
