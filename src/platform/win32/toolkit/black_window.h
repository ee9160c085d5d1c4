#pragma once

#include <memory>
#include <vector>

#include "platform/common/black_windows.h"
#include "toolkit/units.h"

namespace quorvale {

class TopWindow;

// The places of all monitors in device pixels, the primary one, whose corner is at 0, 0, first.
std::vector<PixelRect> AllMonitors();

// Covers every monitor but the primary one. `saver` outlives the windows.
std::unique_ptr<BlackWindows> CoverOtherMonitors(TopWindow& saver);

}  // namespace quorvale
