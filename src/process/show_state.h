#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "process/collection.h"
#include "system/window_system.h"

namespace quorvale {

// The state of the show that outlives its ticks. There is one show to a process.
struct ShowState {
  Collection PictureList;
  Collection SoundList;

  // Places in the lists that the store did not take, by the keys of their options.
  std::map<std::string, std::string> UnstoredPositions;

  // The user wants the show to end: a tick stops at its next step.
  bool StopRequested = false;
  // The user is at the buttons of a list in the configuration window: ticks wait.
  bool PreviewSuspended = false;
  // Set by the first picture: only the ones behind it have something to wipe away.
  bool TransitionArmed = false;
  // Set by the first tick: the options that start a list over are spent.
  bool FirstTickOver = false;
  // 1 to 20 when it comes from the dialog.
  std::int32_t TransitionSpeed = 0;
  // Mouse moves of the full-screen show in the present count.
  std::int32_t MouseMoveCount = 0;

  // The saver's password: non-zero where the user has set one, and the family of the system. Read once a show.
  std::int16_t UsePassword = 0;
  std::int32_t PlatformId = 0;

  // The preview's host: its client area in pixels, and whether the preview still sits in it.
  ClientRect PreviewRect;
  bool PreviewAlive = false;
};

}  // namespace quorvale
