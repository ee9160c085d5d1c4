#include "sound/foley.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

#include "picture/colour.h"
#include "picture/noise.h"
#include "sound/wav_file.h"

namespace quorvale::samples {
namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;

std::size_t SampleAt(float seconds) { return static_cast<std::size_t>(std::max(0.0F, seconds) * kSoundRate); }
float Seconds(std::size_t samples) { return static_cast<float>(samples) / kSoundRate; }

// Follows its input as slowly as `pitch` tells: what stays is below that pitch.
class LowPass {
 public:
  explicit LowPass(float pitch) : share_(1 - std::exp(-kTurn * pitch / kSoundRate)) {}
  float operator()(float input) { return held_ += share_ * (input - held_); }

 private:
  float share_, held_ = 0;
};

}  // namespace

Foley::Foley(float length) : levels_(SampleAt(length)) {}

void Foley::Strike(float at, float pitch, float decay, float level) {
  const std::size_t start = SampleAt(at);
  for (std::size_t i = start; i < levels_.size(); ++i) {
    const float t = Seconds(i - start);
    // Half a millisecond of rise, or the stroke would be a crack in the record.
    levels_[i] += level * std::min(1.0F, t / 0.0005F) * std::exp(-t / decay) * std::sin(kTurn * pitch * t);
  }
}

void Foley::Hiss(float at, float rise, float fall, float low, float high, float level) {
  const std::size_t start = SampleAt(at);
  ++noise_seed_;
  LowPass upper(high), upper_again(high), lower(low);
  for (std::size_t i = start; i < levels_.size(); ++i) {
    const float t = Seconds(i - start);
    const float swell = t < rise ? t / rise : std::exp(-(t - rise) / fall);
    const float dull = upper_again(upper(HashUnit(static_cast<int>(i), 0, noise_seed_) * 2 - 1));
    levels_[i] += level * swell * (dull - lower(dull));
  }
}

void Foley::Motor(float from, float to, float pitch, float teeth, float level) {
  constexpr float kRunUp = 0.07F;
  ++noise_seed_;
  LowPass rumble(900);
  float turned = 0;
  for (std::size_t i = SampleAt(from); i < std::min(SampleAt(to), levels_.size()); ++i) {
    const float t = Seconds(i);
    const float speed = Smooth(from, from + kRunUp, t) * Smooth(to, to - 1.4F * kRunUp, t);
    turned += pitch * (0.7F + 0.3F * speed) / kSoundRate;
    const float hum =
        std::sin(kTurn * turned) + 0.6F * std::sin(2 * kTurn * turned) + 0.25F * std::sin(5 * kTurn * turned);
    const float tooth = 0.55F + 0.45F * std::sin(kTurn * turned * teeth / pitch);
    const float grind = rumble(HashUnit(static_cast<int>(i), 1, noise_seed_) * 2 - 1) * tooth;
    levels_[i] += level * speed * (0.35F * hum + 2.2F * grind);
  }
}

std::vector<float> Foley::Mix() const {
  constexpr float kFadeIn = 0.002F, kFadeOut = 0.03F, kPeak = 0.707F;
  std::vector<float> mixed = levels_;
  LowPass offset(25);
  const float length = Seconds(mixed.size() - 1);
  float loudest = 1e-6F;
  for (std::size_t i = 0; i < mixed.size(); ++i) {
    const float t = Seconds(i);
    mixed[i] = (mixed[i] - offset(mixed[i])) * Smooth(0, kFadeIn, t) * Smooth(length, length - kFadeOut, t);
    loudest = std::max(loudest, std::abs(mixed[i]));
  }
  for (float& level : mixed) level *= kPeak / loudest;
  return mixed;
}

}  // namespace quorvale::samples
