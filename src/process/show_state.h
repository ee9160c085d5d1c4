#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "system/window_system.h"

namespace quorvale {

// A list of paths. Positions count from 1.
class Collection {
 public:
  Collection() = default;
  explicit Collection(std::vector<std::string> items) : items_(std::move(items)) {}

  int Count() const { return static_cast<int>(items_.size()); }
  void Add(std::string item) { items_.push_back(std::move(item)); }

  // Fails with kNoSuchEntry outside 1 to `Count`.
  const std::string& Item(int index) const {
    if (index < 1 || index > Count()) throw Failure(FailureNumber::kNoSuchEntry, "No such entry", "Collection");
    return items_[static_cast<std::size_t>(index) - 1];
  }

  std::vector<std::string> TakeItems() { return std::exchange(items_, {}); }

 private:
  std::vector<std::string> items_;
};

// The state that a show keeps from tick to tick, whatever the number of its forms. A process has one show.
struct ShowState {
  Collection picture_list;
  Collection sound_list;

  // List positions that could not be stored, by option key.
  std::map<std::string, std::string> unstored_positions;

  // The user wants the show to end: a tick stops at its next step.
  bool stop_requested = false;
  // The user is editing a list in the configuration window: ticks do nothing.
  bool preview_suspended = false;
  // Set by the first picture, which has nothing to wipe away. For the show's first form; others have their own.
  bool transition_armed = false;
  // Set by the first tick. From then on the options that restart a list have no effect.
  bool first_tick_over = false;
  // The dialog allows 1 to 20; the store may hold any number.
  std::int32_t transition_speed = 0;
  // Mouse moves counted in the current interval (full-screen show).
  std::int32_t mouse_move_count = 0;

  // Non-zero if a saver password is set, and the system's family. Read once per show.
  std::int16_t use_password = 0;
  std::int32_t platform_id = 0;

  // The preview's host window: its client area in pixels, and whether the preview is still inside it.
  ClientRect preview_rect;
  bool preview_alive = false;
};

}  // namespace quorvale
