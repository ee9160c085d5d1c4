#include "show_settings.h"

#include "base/numbers.h"
#include "playlist/media_collections.h"
#include "screen_states.h"

namespace quorvale {

void ShowStore::Set(const ShowSettings& show) {
  settings_.DeleteSetting(kPictureSection);
  for (std::size_t i = 0; i < show.pictures.size(); ++i) {
    settings_.SaveSetting(kPictureSection, kFileKeyPrefix + std::to_string(i), show.pictures[i]);
  }
  SetOption("LastPicture", "0");
  SetOption("BackColor", std::to_string(kShowBackground));
  SetOption("SwapAffect", show.effect);
  SetOption("Stretch", show.stretch ? "1" : "0");
  SetOption("Interval", std::to_string(show.interval));
  SetOption("TransSpeed", std::to_string(show.speed));
}

void ShowStore::SetOption(const std::string& key, const std::string& value) {
  settings_.SaveSetting("Options", key, value);
}

int ShowStore::PicturesShown() {
  return static_cast<int>(LenientParse(settings_.GetSetting("Options", "LastPicture", "0")));
}

}  // namespace quorvale
