#include "sound/sounds.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string>
#include <vector>

#include "picture/canvas.h"
#include "picture/noise.h"

namespace quorvale::samples {
namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;

std::size_t SampleAt(float seconds) { return static_cast<std::size_t>(std::max(0.0F, seconds) * kSoundRate); }
float Seconds(std::size_t samples) { return static_cast<float>(samples) / kSoundRate; }

// Lets pass what is below `pitch`.
class LowPass {
 public:
  explicit LowPass(float pitch) : share_(1 - std::exp(-kTurn * pitch / kSoundRate)) {}
  float operator()(float input) { return held_ += share_ * (input - held_); }

 private:
  float share_, held_ = 0;
};

// Metal on metal in a small box: a crack of friction, three bright rings and the dull knock of the housing.
void Click(Foley& foley, float at, float tone, float level) {
  foley.Hiss(at, 0.0006F, 0.0045F, 1800, 9000, 3.2F * level);
  foley.Strike(at, 1850 * tone, 0.0070F, 0.45F * level);
  foley.Strike(at, 3120 * tone, 0.0055F, 0.40F * level);
  foley.Strike(at + 0.0007F, 4730 * tone, 0.0040F, 0.25F * level);
  foley.Strike(at, 190 * tone, 0.0140F, 0.60F * level);
}

// A lever or a frame that hits plastic and sheet metal.
void Clack(Foley& foley, float at, float tone, float level) {
  foley.Hiss(at, 0.0010F, 0.0080F, 900, 5200, 2.2F * level);
  foley.Strike(at, 870 * tone, 0.016F, 0.50F * level);
  foley.Strike(at, 1690 * tone, 0.011F, 0.35F * level);
  foley.Strike(at + 0.0012F, 2580 * tone, 0.007F, 0.22F * level);
  foley.Strike(at, 165 * tone, 0.028F, 0.70F * level);
}

// The heavy part of the works falls into its notch.
void Clunk(Foley& foley, float at, float level) {
  foley.Strike(at, 92, 0.055F, 1.1F * level);
  foley.Strike(at, 143, 0.040F, 0.7F * level);
  foley.Strike(at + 0.002F, 410, 0.020F, 0.35F * level);
  foley.Hiss(at, 0.0015F, 0.012F, 300, 2600, 1.8F * level);
}

void AppendLittleEndian(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i, value >>= 8U) bytes += static_cast<char>(value & 0xFFU);
}

}  // namespace

Foley::Foley(float length) : levels_(SampleAt(length)) {}

void Foley::Strike(float at, float pitch, float decay, float level) {
  const std::size_t start = SampleAt(at);
  for (std::size_t i = start; i < levels_.size(); ++i) {
    const float t = Seconds(i - start);
    // Without half a millisecond of rise the stroke would click.
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

std::vector<float> CameraSound() {
  Foley foley(0.34F);
  Click(foley, 0.008F, 0.92F, 0.75F);                   // the mirror swings up,
  foley.Hiss(0.012F, 0.018F, 0.012F, 500, 3000, 0.7F);  // its spring behind it,
  Click(foley, 0.052F, 1.22F, 1.0F);                    // the first curtain opens,
  foley.Hiss(0.056F, 0.012F, 0.020F, 2500, 8000, 0.5F);
  Click(foley, 0.112F, 1.10F, 0.9F);   // the second one closes,
  Click(foley, 0.141F, 0.80F, 0.65F);  // the mirror falls back
  foley.Strike(0.141F, 118, 0.030F, 0.55F);
  foley.Hiss(0.146F, 0.010F, 0.045F, 600, 2600, 0.45F);  // and all comes to rest.
  return foley.Mix();
}

std::vector<float> SlideProjectorSound() {
  Foley foley(1.18F);
  foley.Motor(0.01F, 1.02F, 98, 37, 0.20F);
  Clunk(foley, 0.070F, 0.8F);                           // the clutch takes hold,
  Clack(foley, 0.185F, 1.25F, 0.45F);                   // the lifter meets the old slide
  foley.Hiss(0.19F, 0.11F, 0.035F, 1400, 4600, 0.55F);  // and pushes it up,
  Clunk(foley, 0.455F, 0.7F);                           // the tray turns by one,
  Clack(foley, 0.470F, 0.85F, 0.6F);
  foley.Hiss(0.60F, 0.09F, 0.015F, 1800, 6400, 0.75F);  // the new slide glides down
  Clack(foley, 0.702F, 1.0F, 1.0F);                     // and lands,
  Clack(foley, 0.748F, 1.08F, 0.28F);                   // hopping once,
  Clunk(foley, 0.930F, 0.55F);                          // and the works stand still.
  return foley.Mix();
}

std::string WavBytes(const std::vector<float>& levels) {
  constexpr std::uint32_t kSampleBytes = 2, kFormatBytes = 16, kPcm = 1;
  const auto data_bytes = static_cast<std::uint32_t>(levels.size()) * kSampleBytes;
  std::string bytes = "RIFF";
  AppendLittleEndian(bytes, 4 + 8 + kFormatBytes + 8 + data_bytes, 4);
  bytes += "WAVEfmt ";
  AppendLittleEndian(bytes, kFormatBytes, 4);
  AppendLittleEndian(bytes, kPcm, 2);
  AppendLittleEndian(bytes, 1, 2);  // channels
  AppendLittleEndian(bytes, kSoundRate, 4);
  AppendLittleEndian(bytes, kSoundRate * kSampleBytes, 4);
  AppendLittleEndian(bytes, kSampleBytes, 2);
  AppendLittleEndian(bytes, 8 * kSampleBytes, 2);
  bytes += "data";
  AppendLittleEndian(bytes, data_bytes, 4);
  for (const float level : levels) {
    const auto value = static_cast<std::int16_t>(std::lround(std::clamp(level, -1.0F, 1.0F) * 32767));
    AppendLittleEndian(bytes, static_cast<std::uint16_t>(value), 2);
  }
  return bytes;
}

}  // namespace quorvale::samples
