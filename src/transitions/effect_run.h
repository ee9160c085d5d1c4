#pragma once

#include <cstdint>

#include "toolkit/units.h"

namespace quorvale {

class ImageControl;
class PacedRun;
class PictureBox;
struct Process;

// What one run of a transition works with.
struct EffectRun {
  Process& process;
  PictureBox& PicBase;
  ImageControl& PicPreview;
  PacedRun& pace;
  Colour WipeColour;
  // Extra event pumps after each step; 0 or less is no pause.
  std::int32_t DelayCount;

  // Called when a step's shapes are drawn: pumps events once, and ends the program if the show is to end.
  void PumpStep() const;
  // The pause: `DelayCount` pumps.
  void Pause() const;
  // Both, as nearly every effect has them.
  void EndStep() const;
};

}  // namespace quorvale
