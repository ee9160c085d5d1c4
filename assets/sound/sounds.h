#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorvale::samples {

// A sound mixed from strokes, hisses and motors. Times are in seconds, pitches in hertz; levels are relative to each
// other.
class Foley {
 public:
  explicit Foley(float length);

  // A struck piece that rings: `decay` is the time in which it fades to a third.
  void Strike(float at, float pitch, float decay, float level);

  // Air or friction between two pitches that swells over `rise` and fades over `fall`.
  void Hiss(float at, float rise, float fall, float low, float high, float level);

  // A motor that starts and stops: a hum with overtones, and teeth that pass `teeth` times a second.
  void Motor(float from, float to, float pitch, float teeth, float level);

  // The mix, without an offset, faded in and out, with its peak at -3 decibels.
  std::vector<float> Mix() const;

 private:
  std::vector<float> levels_;
  std::uint32_t noise_seed_ = 500;
};

// The shutter of a reflex camera.
std::vector<float> CameraSound();
// A carousel projector that goes to its next slide.
std::vector<float> SlideProjectorSound();

inline constexpr int kSoundRate = 44100;  // samples per second

// The bytes of a wave file, 16-bit PCM in one channel. Levels are -1 to 1 and are cut beyond that.
std::string WavBytes(const std::vector<float>& levels);

}  // namespace quorvale::samples
