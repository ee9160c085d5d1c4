#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "toolkit/units.h"

namespace quorvale {

class ImageControl;
class PacedRun;
class PictureBox;
struct Process;

// What one run of an effect works with.
struct EffectRun {
  Process& process;
  PictureBox& PicBase;
  ImageControl& PicPreview;
  PacedRun& pace;
  Colour WipeColour;
  // Passes of the event queue that follow each step; 0 or less is no pause.
  std::int32_t DelayCount;

  // Ends a step once its shapes are drawn: pumps once, and ends the program if the show is to end.
  void PumpStep() const;
  void Pause() const;
  void EndStep() const {
    PumpStep();
    Pause();
  }
};

// Paints the picture on view away in the background colour, one small shape after another. An effect computes
// where its loop ends once; what it draws follows the surface as that is at each step.
struct Effect {
  std::string_view name;
  void (*run)(const EffectRun&);
  // Shapes that a step draws.
  int shapes = 1;
};

// Choices of the option that are no effect of their own: the next picture comes at once, or a draw decides.
inline constexpr char kNoEffect[] = "None";
inline constexpr char kRandomEffect[] = "Random";

// In the order of the random draw, which is that of the drop-down list as well.
std::span<const Effect> Effects();

}  // namespace quorvale
