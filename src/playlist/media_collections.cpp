#include "playlist/media_collections.h"

#include <vector>

#include "base/failure.h"
#include "base/numbers.h"
#include "playlist/list_entry.h"
#include "playlist/list_store.h"
#include "playlist/shuffle.h"
#include "playlist/token.h"
#include "process/process.h"
#include "system/file_system.h"
#include "system/host_system.h"
#include "toolkit/form.h"
#include "toolkit/list_box.h"
#include "toolkit/picture_box.h"
#include "toolkit/picture_formats.h"
#include "toolkit/timer.h"

namespace quorvale {
namespace {

constexpr int kFirstTickMilliseconds = 500;

void AddEntry(Process& process, Collection& collection, const std::string& entry, const std::string& mask) {
  const PathSyntax syntax = process.system.files.Syntax();
  std::string path = EntryPath(entry, syntax);
  if (!path.empty() && syntax.IsSeparator(path.back())) {
    AddDirectoryFiles(process, collection, path, mask);
  } else {
    collection.Add(std::move(path));
  }
}

void Shuffle(Process& process, Collection& collection) {
  process.random.Seed(process.system.host.ClockSeed());
  ShuffleCollection(collection, process.random);
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

void InitShow(Process& process, std::int32_t fromSettings, Form& frm) {
  auto& tmrSwitch = frm.Find<Timer>("tmrSwitch");
  auto& PicBase = frm.Find<PictureBox>("PicBase");
  tmrSwitch.SetEnabled(false);
  if (fromSettings == 0) {
    process.PictureList = FillFromList(process, frm.Find<ListBox>("lstList(0)"), PictureMask());
    process.SoundList = FillFromList(process, frm.Find<ListBox>("lstList(1)"), kSoundMask);
  } else {
    process.PictureList = FillFromSettings(process, kPictureSection, PictureMask());
    process.SoundList = FillFromSettings(process, kSoundSection, kSoundMask);
  }
  const auto background = static_cast<Colour>(RoundToInt32(LenientParse(process.Option("BackColor", "&H00000000&"))));
  PicBase.SetBackColor(background);
  PicBase.SetFillColor(background);
  if (IsOn(process.Option("PicRandom", ""))) Shuffle(process, process.PictureList);
  if (IsOn(process.Option("SoundRandom", ""))) Shuffle(process, process.SoundList);
  tmrSwitch.SetInterval(kFirstTickMilliseconds);
  tmrSwitch.SetEnabled(true);
  process.TransitionSpeed = RoundToInt32(LenientParse(process.Option("TransSpeed", "20")));
}

Collection FillFromList(Process& process, const ListBox& list, const std::string& mask) {
  Collection collection;
  for (int i = 0; i < list.ListCount(); ++i) AddEntry(process, collection, list.List(i), mask);
  return collection;
}

Collection FillFromSettings(Process& process, const std::string& section, const std::string& mask) {
  Collection collection;
  for (int counter = 0;; ++counter) {
    const std::string entry =
        process.Settings.GetSetting(section, kFileKeyPrefix + std::to_string(counter), kEndOfList, kHkeyCurrentUser);
    if (entry == kEndOfList) return collection;
    AddEntry(process, collection, entry, mask);
  }
}

void AddDirectoryFiles(Process& process, Collection& collection, const std::string& directory,
                       const std::string& mask) {
  std::vector<std::string> patterns;
  std::string rest = mask;
  for (std::string pattern = CutToken(rest, ';'); !pattern.empty(); pattern = CutToken(rest, ';')) {
    patterns.push_back(pattern);
  }
  try {
    process.system.files.EnumerateFiles(directory, patterns,
                                        [&](const std::string& name) { collection.Add(directory + name); });
  } catch (const Failure&) {
    // A drive that is gone: the rest of the list plays.
  }
}

}  // namespace quorvale
