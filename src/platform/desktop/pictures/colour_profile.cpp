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
// What a channel adds to another is counted from here, up to `kMostSteps`, so that no sum is negative. The largest in
// use are those of ProPhoto, -0.8 and 2.1 times the light.
constexpr int kLeastSteps = -kLightSteps;
constexpr int kMostSteps = 3 * kLightSteps;
constexpr int kSumOfLeast = 3 * kLeastSteps;

// In sRGB. Light below black or above white is cut off, and no number at all becomes black.
std::uint8_t ScreenLevel(double light) {
  const double seen = light > 0 ? std::min(light, 1.0) : 0;
  const double level = seen <= 0.0031308 ? 12.92 * seen : 1.055 * std::pow(seen, 1 / 2.4) - 0.055;
  return static_cast<std::uint8_t>(std::lround(255 * level));
}

// The level for each sum of three channels.
const std::vector<std::uint8_t>& ScreenLevels() {
  static const auto levels = [] {
    std::vector<std::uint8_t> table;
    for (int sum = kSumOfLeast; sum <= 3 * kMostSteps; ++sum)
      table.push_back(ScreenLevel(static_cast<double>(sum) / kLightSteps));
    return table;
  }();
  return levels;
}

// The profiles of cameras and screens: a curve for each channel, and the mixture of the primaries. What each level of a
// channel adds to the three of the screen is made in advance and stands in one number, so that a pixel takes two sums.
// The library would take several times as long for a row.
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
          const float steps = (weights[0] * xyz[0] + weights[1] * xyz[1] + weights[2] * xyz[2]) * light;
          // Written so that no number at all becomes black, too.
          const float above = steps > kLeastSteps ? steps : kLeastSteps;
          const auto whole = std::lround(above < kMostSteps ? above : kMostSteps);
          light_[from][level] |= static_cast<std::uint64_t>(whole - kLeastSteps) << kBits * to;
        }
      }
    }
  }

  void operator()(std::span<Pixel> row) const {
    const std::uint8_t* const levels = ScreenLevels().data();
    for (Pixel& pixel : row) {
      const std::uint64_t sums =
          light_[0][pixel >> 16U & 0xFFU] + light_[1][pixel >> 8U & 0xFFU] + light_[2][pixel & 0xFFU];
      const auto level = [&](unsigned to) { return Pixel{levels[sums >> kBits * to & kMask]}; };
      pixel = 0xFF000000U | level(0) << 16U | level(1) << 8U | level(2);
    }
  }

 private:
  // Of red, green and blue, from the lowest bit up. A sum of three fits.
  static constexpr unsigned kBits = 21;
  static constexpr std::uint64_t kMask = (std::uint64_t{1} << kBits) - 1;
  static_assert(3 * (kMostSteps - kLeastSteps) <= static_cast<int>(kMask));

  // For each channel and level.
  std::uint64_t light_[3][256] = {};
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

// The profiles of grey pictures: a curve, from levels to light or to lightness.
ColourConversion ByCurve(void* profile) {
  const auto* const curve = static_cast<const cmsToneCurve*>(cmsReadTag(profile, cmsSigGrayTRCTag));
  if (curve == nullptr) return {};
  const std::uint32_t gives = cmsGetPCS(profile);
  std::vector<Pixel> shown;
  for (std::size_t level = 0; level < 256; ++level) {
    const float value = cmsEvalToneCurveFloat(curve, static_cast<float>(level) / 255.0F);
    const cmsCIELab lightness = {100.0 * value, 0, 0};
    cmsCIEXYZ light = {0, value, 0};
    if (gives == cmsSigLabData) cmsLab2XYZ(nullptr, &light, &lightness);
    shown.push_back(0xFF000000U | ScreenLevel(light.Y) * 0x010101U);
  }
  // All channels are equal.
  return [shown = std::move(shown)](std::span<Pixel> row) {
    for (Pixel& pixel : row) pixel = shown[pixel & 0xFFU];
  };
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

// All levels of grey.
std::vector<Pixel> Greys() {
  std::vector<Pixel> colours;
  for (Pixel level = 0; level <= 255; ++level) colours.push_back(0xFF000000U | level * 0x010101U);
  return colours;
}

// Colours all over the cube.
std::vector<Pixel> Colours() {
  std::vector<Pixel> colours;
  for (Pixel red = 0; red <= 255; red += 51) {
    for (Pixel green = 0; green <= 255; green += 51) {
      for (Pixel blue = 0; blue <= 255; blue += 51) colours.push_back(0xFF000000U | red << 16U | green << 8U | blue);
    }
  }
  return colours;
}

bool Changes(const ColourConversion& convert, std::vector<Pixel> colours) {
  const std::vector<Pixel> before = colours;
  convert(colours);
  const auto differs = [](Pixel a, Pixel b) {
    const auto channel = [](Pixel pixel, unsigned shift) { return static_cast<int>(pixel >> shift & 0xFFU); };
    return std::ranges::any_of(std::array{0U, 8U, 16U}, [&](unsigned shift) {
      return std::abs(channel(a, shift) - channel(b, shift)) > kRounding;
    });
  };
  return !std::equal(colours.begin(), colours.end(), before.begin(), std::not_fn(differs));
}

// Red, green, blue and white by the number that the standards of films give them. Missing are rare ones.
struct Primaries {
  int number;
  cmsCIExyYTRIPLE colours;
  cmsCIExyY white;
};
constexpr cmsCIExyY kDaylight = {0.3127, 0.3290, 1};
constexpr int kPrimariesOfSrgb = 1;
constexpr Primaries kPrimaries[] = {
    {kPrimariesOfSrgb, {{0.640, 0.330, 1}, {0.300, 0.600, 1}, {0.150, 0.060, 1}}, kDaylight},
    {4, {{0.670, 0.330, 1}, {0.210, 0.710, 1}, {0.140, 0.080, 1}}, {0.310, 0.316, 1}},
    {5, {{0.640, 0.330, 1}, {0.290, 0.600, 1}, {0.150, 0.060, 1}}, kDaylight},
    {6, {{0.630, 0.340, 1}, {0.310, 0.595, 1}, {0.155, 0.070, 1}}, kDaylight},
    {7, {{0.630, 0.340, 1}, {0.310, 0.595, 1}, {0.155, 0.070, 1}}, kDaylight},
    {9, {{0.708, 0.292, 1}, {0.170, 0.797, 1}, {0.131, 0.046, 1}}, kDaylight},
    {12, {{0.680, 0.320, 1}, {0.265, 0.690, 1}, {0.150, 0.060, 1}}, kDaylight},
};

// Transfer curves that are a power of the level, by their numbers. The rest are shown by that of sRGB, as everywhere.
constexpr std::pair<int, double> kPowers[] = {{4, 2.2}, {5, 2.8}, {8, 1}};
// Light that is brighter than the screen would have to be compressed.
constexpr int kBrightCurves[] = {16, 18};

}  // namespace

std::shared_ptr<const ColourProfile> ColourProfile::Read(std::span<const std::uint8_t> profile, bool is_grey) {
  if (profile.empty() || profile.size() > kLongestProfile) return nullptr;
  const Profile from(cmsOpenProfileFromMem(profile.data(), static_cast<cmsUInt32Number>(profile.size())));
  if (!from) return nullptr;
  // A damaged one names no space of the list.
  const std::uint32_t space = cmsGetColorSpace(from.get());
  const bool of_greys = is_grey && space == cmsSigGrayData;
  if (!of_greys && space != cmsSigRgbData) return nullptr;
  ColourConversion convert = of_greys                             ? ByCurve(from.get())
                             : cmsIsMatrixShaper(from.get()) != 0 ? ByMatrix(from.get())
                                                                  : ByTransform(from.get());
  if (!convert || !Changes(convert, of_greys ? Greys() : Colours())) return nullptr;
  return std::shared_ptr<const ColourProfile>(new ColourProfile(std::move(convert)));
}

std::vector<std::uint8_t> ColourProfile::OfNumbers(int primaries, int transfer) {
  const auto* const from = std::ranges::find(kPrimaries, primaries, &Primaries::number);
  const auto* const power = std::ranges::find(kPowers, transfer, &std::pair<int, double>::first);
  const bool has_srgb_curve = power == std::end(kPowers);
  if (from == std::end(kPrimaries) || (from->number == kPrimariesOfSrgb && has_srgb_curve) ||
      std::ranges::find(kBrightCurves, transfer) != std::end(kBrightCurves)) {
    return {};
  }
  // Gamma, scale, offset, slope near black, and where it ends.
  constexpr double kSrgbCurve[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
  const std::unique_ptr<cmsToneCurve, decltype(&cmsFreeToneCurve)> curve(
      has_srgb_curve ? cmsBuildParametricToneCurve(nullptr, 4, kSrgbCurve) : cmsBuildGamma(nullptr, power->second),
      &cmsFreeToneCurve);
  cmsToneCurve* const curves[] = {curve.get(), curve.get(), curve.get()};
  const Profile profile(cmsCreateRGBProfile(&from->white, &from->colours, curves));
  cmsUInt32Number size = 0;
  if (!profile || cmsSaveProfileToMem(profile.get(), nullptr, &size) == 0) return {};
  std::vector<std::uint8_t> bytes(size);
  if (cmsSaveProfileToMem(profile.get(), bytes.data(), &size) == 0) return {};
  return bytes;
}

void ColourProfile::ToScreen(std::span<Pixel> row) const { ConvertUnmultiplied(row, convert_); }

}  // namespace quorvale
