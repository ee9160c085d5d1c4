#include "playlist/media_collections.h"

#include <vector>

#include "base/failure.h"
#include "playlist/list_entry.h"
#include "playlist/list_store.h"
#include "playlist/token.h"
#include "settings/reg_settings.h"
#include "system/file_system.h"
#include "toolkit/list_box.h"
#include "toolkit/picture.h"

namespace quorvale {
namespace {

void AddEntry(FileSystem& files, Collection& collection, const std::string& entry, const std::string& mask) {
  const PathSyntax syntax = files.Syntax();
  std::string path = EntryPath(entry, syntax);
  if (!path.empty() && syntax.IsSeparator(path.back())) {
    AddDirectoryFiles(files, collection, path, mask);
  } else {
    collection.Add(std::move(path));
  }
}

}  // namespace

std::string PictureMask() {
  std::string mask;
  for (const PictureFormat& format : kPictureFormats) {
    if (!format.listed) continue;
    if (!mask.empty()) mask += ';';
    mask += format.patterns;
  }
  return mask;
}

Collection FillFromList(FileSystem& files, const ListBox& list, const std::string& mask) {
  Collection collection;
  for (int i = 0; i < list.ListCount(); ++i) AddEntry(files, collection, list.List(i), mask);
  return collection;
}

Collection FillFromSettings(CRegSettings& settings, FileSystem& files, const std::string& section,
                            const std::string& mask) {
  Collection collection;
  for (int counter = 0;; ++counter) {
    const std::string entry =
        settings.GetSetting(section, kFileKeyPrefix + std::to_string(counter), kEndOfList, kHkeyCurrentUser);
    if (entry == kEndOfList) return collection;
    AddEntry(files, collection, entry, mask);
  }
}

void AddDirectoryFiles(FileSystem& files, Collection& collection, const std::string& directory,
                       const std::string& mask) {
  std::vector<std::string> patterns;
  std::string rest = mask;
  for (std::string pattern = CutToken(rest, ';'); !pattern.empty(); pattern = CutToken(rest, ';')) {
    patterns.push_back(pattern);
  }
  try {
    files.EnumerateFiles(directory, patterns, [&](const std::string& name) { collection.Add(directory + name); });
  } catch (const Failure&) {
    // The drive may be gone. The rest of the list plays.
  }
}

}  // namespace quorvale
