#include "config/stored_play_lists.h"

#include "config/config_form.h"
#include "playlist/list_store.h"
#include "playlist/media_collections.h"
#include "process/process.h"

namespace quorvale {
namespace {

constexpr char kPlayListKey[] = "PlayList";

}  // namespace

void SavePlayLists(Process& process, const frmConfig& frm) {
  SaveList(process.Settings, frm.lstList[0], kPictureSection, kFileKeyPrefix);
  SaveList(process.Settings, frm.lstList[1], kSoundSection, kFileKeyPrefix);
  process.SetOption(kPlayListKey, frm.CurPlayList());
}

void LoadPlayLists(Process& process, frmConfig& frm) {
  LoadList(process.Settings, frm.lstList[0], kPictureSection, kFileKeyPrefix);
  LoadList(process.Settings, frm.lstList[1], kSoundSection, kFileKeyPrefix);
  frm.SetCurPlayList(process.Option(kPlayListKey, ""));
}

}  // namespace quorvale
