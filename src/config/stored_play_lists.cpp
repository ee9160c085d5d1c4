#include "config/stored_play_lists.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "config/config_form.h"
#include "playlist/list_store.h"
#include "playlist/media_collections.h"
#include "process/process.h"

namespace quorvale {
namespace {

constexpr std::array<const char*, 2> kSections = {kPictureSection, kSoundSection};

}  // namespace

ListsSaved SavePlayLists(Process& process, const frmConfig& frm) {
  const auto& taken = frm.TakenParts;
  if (std::find(taken.begin(), taken.end(), TakenPart::kUnread) != taken.end()) return ListsSaved::kUnread;
  const bool saved = process.Settings.SaveTogether([&] {
    for (std::size_t i = 0; i < kSections.size(); ++i) {
      const auto save = taken.at(i) == TakenPart::kFirst ? SaveFirstPart : SaveList;
      save(process.Settings, frm.lstList.at(i), kSections.at(i), kFileKeyPrefix);
    }
    process.options.SetText(kPlayList, frm.CurPlayList());
  });
  return saved ? ListsSaved::kSaved : ListsSaved::kRefused;
}

void LoadPlayLists(Process& process, frmConfig& frm) {
  for (std::size_t i = 0; i < kSections.size(); ++i) {
    frm.TakenParts.at(i) = LoadList(process.Settings, frm.lstList.at(i), kSections.at(i), kFileKeyPrefix);
  }
  std::string path;
  // A path that was not read must not be replaced, no more than the entries of a list.
  if (!process.options.Read(kPlayList, path)) frm.TakenParts.front() = TakenPart::kUnread;
  frm.SetCurPlayList(std::move(path));
}

}  // namespace quorvale
