#include "platform/desktop/pictures/colour_profile.h"

#include <lcms2.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <utility>

#include "platform/pictures/embedded_profile.h"

namespace quorvale {
namespace {

struct CloseProfile {
  void operator()(void* profile) const { cmsCloseProfile(profile); }
};
using Profile = std::unique_ptr<void, CloseProfile>;

constexpr auto kPixelFormat = std::endian::native == std::endian::little ? TYPE_BGRA_8 : TYPE_ARGB_8;

// Levels by which a profile that was written for sRGB may differ by rounding.
constexpr int kRounding = 2;

// From XYZ to the linear light of sRGB, with the white D50 of profiles.
constexpr float kToScreen[3][3] = {{3.1338561F, -1.6168667F, -0.4906146F},
                                   {-0.9787684F, 1.9161415F, 0.0334540F},
                                   {0.0719453F, -0.2289914F, 1.4052427F}};

// Fine enough that no level of sRGB is left out near black, where its curve is steepest.
constexpr int kLightSteps = 1 << 14;

// The level in sRGB for each step of linear light.
const std::array<std::uint8_t, kLightSteps + 1>& ScreenLevels() {
  static const auto levels = [] {
    std::array<std::uint8_t, kLightSteps + 1> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
      const double light = static_cast<double>(i) / kLightSteps;
      const double level = light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
      table[i] = static_cast<std::uint8_t>(std::lround(255 * level));
    }
    return table;
  }();
  return levels;
}

// The profiles of cameras and screens: a curve for each channel, and the mixture of the primaries. What each level of a
// channel adds to the three of the screen is made in advance, so that a pixel takes two sums of vectors. The library
// would take several times as long for a row.
class MatrixConversion {
 public:
  // Curves and primaries come from the tags.
  MatrixConversion(const std::array<const cmsToneCurve*, 3>& curves, const std::array<const cmsCIEXYZ*, 3>& primaries) {
    for (std::size_t from = 0; from < 3; ++from) {
      const cmsCIEXYZ& primary = *primaries[from];
      const float xyz[] = {static_cast<float>(primary.X), static_cast<float>(primary.Y), static_cast<float>(primary.Z)};
      for (std::size_t level = 0; level < 256; ++level) {
        const float light = cmsEvalToneCurveFloat(curves[from], static_cast<float>(level) / 255.0F) * kLightSteps;
        for (std::size_t to = 0; to < 3; ++to) {
          const auto& weights = kToScreen[to];
          light_[from][level][to] = (weights[0] * xyz[0] + weights[1] * xyz[1] + weights[2] * xyz[2]) * light;
        }
      }
    }
  }

  void operator()(std::span<Pixel> row) const {
    const std::uint8_t* const levels = ScreenLevels().data();
    for (Pixel& pixel : row) {
      const float* const red = light_[0][pixel >> 16U & 0xFFU];
      const float* const green = light_[1][pixel >> 8U & 0xFFU];
      const float* const blue = light_[2][pixel & 0xFFU];
      int steps[4];
      for (std::size_t i = 0; i < 4; ++i) {
        const float light = red[i] + green[i] + blue[i] + 0.5F;
        // Written so that no number at all becomes black, too.
        const float above = light > 0.0F ? light : 0.0F;
        steps[i] = static_cast<int>(above < kLightSteps ? above : kLightSteps);
      }
      pixel = 0xFF000000U | Pixel{levels[steps[0]]} << 16U | Pixel{levels[steps[1]]} << 8U | levels[steps[2]];
    }
  }

 private:
  // For each channel and level: steps of red, green and blue light. The fourth is 0.
  alignas(16) float light_[3][256][4] = {};
};

ColourConversion ByMatrix(void* profile) {
  std::array<const cmsToneCurve*, 3> curves{};
  std::array<const cmsCIEXYZ*, 3> primaries{};
  constexpr cmsTagSignature kCurves[] = {cmsSigRedTRCTag, cmsSigGreenTRCTag, cmsSigBlueTRCTag};
  constexpr cmsTagSignature kPrimaries[] = {cmsSigRedColorantTag, cmsSigGreenColorantTag, cmsSigBlueColorantTag};
  for (std::size_t i = 0; i < 3; ++i) {
    curves[i] = static_cast<const cmsToneCurve*>(cmsReadTag(profile, kCurves[i]));
    primaries[i] = static_cast<const cmsCIEXYZ*>(cmsReadTag(profile, kPrimaries[i]));
    if (curves[i] == nullptr || primaries[i] == nullptr) return {};
  }
  return MatrixConversion(curves, primaries);
}

// Profiles of scanners and printers: tables of colours.
ColourConversion ByTransform(void* profile) {
  const Profile srgb(cmsCreate_sRGBProfile());
  const std::shared_ptr<void> transform(
      cmsCreateTransform(profile, kPixelFormat, srgb.get(), kPixelFormat, INTENT_PERCEPTUAL, cmsFLAGS_NOCACHE),
      [](void* made) {
        if (made != nullptr) cmsDeleteTransform(made);
      });
  if (!transform) return {};
  return [transform](std::span<Pixel> row) {
    cmsDoTransform(transform.get(), row.data(), row.data(), static_cast<cmsUInt32Number>(row.size()));
  };
}

}  // namespace

std::shared_ptr<const ColourProfile> ColourProfile::Read(std::span<const std::uint8_t> profile) {
  if (profile.empty() || profile.size() > kLongestProfile) return nullptr;
  const Profile from(cmsOpenProfileFromMem(profile.data(), static_cast<cmsUInt32Number>(profile.size())));
  if (!from || cmsGetColorSpace(from.get()) != cmsSigRgbData) return nullptr;
  ColourConversion convert = cmsIsMatrixShaper(from.get()) != 0 ? ByMatrix(from.get()) : ByTransform(from.get());
  if (!convert) return nullptr;
  std::shared_ptr<const ColourProfile> colours(new ColourProfile(std::move(convert)));
  return colours->ChangesColours() ? colours : nullptr;
}

// Tries colours all over the cube.
bool ColourProfile::ChangesColours() const {
  std::vector<Pixel> colours;
  for (Pixel red = 0; red <= 255; red += 51) {
    for (Pixel green = 0; green <= 255; green += 51) {
      for (Pixel blue = 0; blue <= 255; blue += 51) colours.push_back(0xFF000000U | red << 16U | green << 8U | blue);
    }
  }
  const std::vector<Pixel> before = colours;
  ToScreen(colours);
  const auto differs = [](Pixel a, Pixel b) {
    const auto channel = [](Pixel pixel, unsigned shift) { return static_cast<int>(pixel >> shift & 0xFFU); };
    return std::ranges::any_of(std::array{0U, 8U, 16U}, [&](unsigned shift) {
      return std::abs(channel(a, shift) - channel(b, shift)) > kRounding;
    });
  };
  return !std::equal(colours.begin(), colours.end(), before.begin(), std::not_fn(differs));
}

std::vector<std::uint8_t> ColourProfile::DisplayP3() {
  const cmsCIExyY white = {0.3127, 0.3290, 1};
  const cmsCIExyYTRIPLE primaries = {{0.680, 0.320, 1}, {0.265, 0.690, 1}, {0.150, 0.060, 1}};
  // The curve of sRGB: gamma, scale, offset, slope near black, and where it ends.
  const double curve[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
  const std::unique_ptr<cmsToneCurve, decltype(&cmsFreeToneCurve)> transfer(
      cmsBuildParametricToneCurve(nullptr, 4, curve), &cmsFreeToneCurve);
  cmsToneCurve* const transfers[] = {transfer.get(), transfer.get(), transfer.get()};
  const Profile profile(cmsCreateRGBProfile(&white, &primaries, transfers));
  cmsUInt32Number size = 0;
  if (!profile || cmsSaveProfileToMem(profile.get(), nullptr, &size) == 0) return {};
  std::vector<std::uint8_t> bytes(size);
  if (cmsSaveProfileToMem(profile.get(), bytes.data(), &size) == 0) return {};
  return bytes;
}

void ColourProfile::ToScreen(std::span<Pixel> row) const { ConvertUnmultiplied(row, convert_); }

}  // namespace quorvale
