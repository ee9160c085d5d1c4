#pragma once

#include <optional>

#include "platform/win32/loaded_library.h"
#include "system/sound_player.h"

namespace quorvale {

// The system's player. It answers for itself: some systems say yes before they have looked at the file.
class Win32SoundPlayer : public SoundPlayer {
 public:
  bool PlaySound(const std::string& path, std::uint32_t flags) override;

 private:
  // From the first sound on: one may still be playing.
  std::optional<LoadedLibrary> multimedia_;
};

}  // namespace quorvale
