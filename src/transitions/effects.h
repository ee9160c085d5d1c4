#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "toolkit/units.h"

namespace quorvale {

class ImageControl;
class PacedRun;
class PictureBox;
class Random;
struct ShowState;

// What one run of an effect works with.
struct EffectRun {
  const ShowState& show;
  Random& random;
  PictureBox& PicBase;
  ImageControl& PicPreview;
  PacedRun& pace;
  Colour wipe_colour;
  // Passes of the event queue after each step; no pause if 0 or less.
  std::int32_t delay_count;
  // Ends the program; does not return.
  std::function<void()> end_program;

  // Ends a step once its shapes are drawn: pumps once, and ends the program if the show is to end.
  void PumpStep() const;
  void Pause() const;
  void EndStep() const {
    PumpStep();
    Pause();
  }
};

// Covers the current picture with the background colour, one small shape at a time. An effect computes the end of its
// loop once; the surface may be resized meanwhile, so each step reads its size again.
struct Effect {
  std::string_view name;
  void (*run)(const EffectRun&);
  // Shapes drawn per step.
  int shapes = 1;
};

// Values of the option that are not effects: change without a transition, and choose an effect at random.
inline constexpr char kNoEffect[] = "None";
inline constexpr char kRandomEffect[] = "Random";

// The table of effects, in the order of the random draw and of the drop-down list.
std::span<const Effect> Effects();

}  // namespace quorvale
