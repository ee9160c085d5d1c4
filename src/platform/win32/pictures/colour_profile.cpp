#include "platform/win32/pictures/colour_profile.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>

#include "platform/pictures/embedded_profile.h"
#include "platform/win32/system/modules.h"
#include "platform/win32/windows_api.h"
// Needs the header above.
#include <icm.h>

namespace quorvale {
namespace {

// The system's names for them are character constants of several letters, whose values compilers do not agree on.
constexpr DWORD kStandardColours = 0x73524742;  // "sRGB"
constexpr DWORD kRgb = 0x52474220;              // "RGB "
constexpr DWORD kGrey = 0x47524159;             // "GRAY"

// Levels by which a profile that was written for sRGB may differ by rounding.
constexpr int kRounding = 2;

// Colours of the grid along each axis. With so many the interpolation is within two levels, and six at the border of
// what the screen can show.
constexpr unsigned kSteps = 33;
// The distance from one to the next.
constexpr unsigned kWhole = 256;

// Of greys every level is asked for.
constexpr std::size_t kLevels = 256;

constexpr unsigned kRedLane = 32;
constexpr unsigned kGreenLane = 16;

// Calls of the colour system, which is loaded for pictures that need it.
struct ColourSystem {
  template <typename Function>
  Function* Find(const char* name) const {
    return library.Find<Function>(name);
  }

  LoadedLibrary library{"mscms.dll"};
  decltype(&OpenColorProfileW) open = Find<decltype(OpenColorProfileW)>("OpenColorProfileW");
  decltype(&CloseColorProfile) close = Find<decltype(CloseColorProfile)>("CloseColorProfile");
  decltype(&GetColorProfileHeader) header = Find<decltype(GetColorProfileHeader)>("GetColorProfileHeader");
  decltype(&GetStandardColorSpaceProfileW) standard =
      Find<decltype(GetStandardColorSpaceProfileW)>("GetStandardColorSpaceProfileW");
  decltype(&CreateMultiProfileTransform) create =
      Find<decltype(CreateMultiProfileTransform)>("CreateMultiProfileTransform");
  decltype(&DeleteColorTransform) remove = Find<decltype(DeleteColorTransform)>("DeleteColorTransform");
  decltype(&TranslateColors) translate = Find<decltype(TranslateColors)>("TranslateColors");

  bool IsComplete() const {
    return open != nullptr && close != nullptr && header != nullptr && standard != nullptr && create != nullptr &&
           remove != nullptr && translate != nullptr;
  }
};

struct CloseProfile {
  void operator()(void* profile) const { close(profile); }
  decltype(&CloseColorProfile) close;
};
using Profile = std::unique_ptr<void, CloseProfile>;

Profile Open(const ColourSystem& system, DWORD type, void* data, std::size_t size) {
  PROFILE profile{};
  profile.dwType = type;
  profile.pProfileData = data;
  profile.cbDataSize = static_cast<DWORD>(size);
  return {system.open(&profile, PROFILE_READ, FILE_SHARE_READ, OPEN_EXISTING), {system.close}};
}

Profile OpenStandard(const ColourSystem& system) {
  std::wstring name(MAX_PATH, L'\0');
  auto size = static_cast<DWORD>(name.size() * sizeof(wchar_t));
  if (system.standard(nullptr, kStandardColours, name.data(), &size) == FALSE) return {nullptr, {system.close}};
  return Open(system, PROFILE_FILENAME, name.data(), size);
}

struct DeleteTransform {
  void operator()(void* transform) const { remove(transform); }
  decltype(&DeleteColorTransform) remove;
};
using Transform = std::unique_ptr<void, DeleteTransform>;

// From the profile to sRGB. Null if there is no such transform.
Transform Create(const ColourSystem& system, HPROFILE from) {
  const Profile to = OpenStandard(system);
  if (!to) return {nullptr, {system.remove}};
  HPROFILE profiles[] = {from, to.get()};
  DWORD intents[] = {INTENT_PERCEPTUAL, INTENT_PERCEPTUAL};
  return {system.create(profiles, 2, intents, 2, NORMAL_MODE, INDEX_DONT_CARE), {system.remove}};
}

// Of the 16 bits of a level.
unsigned Narrow(WORD level) { return (level + 128U) / 257U; }

// The level of a step of the grid.
WORD LevelAt(unsigned step) { return static_cast<WORD>(step * 65535U / (kSteps - 1)); }

// The grid's colours with their levels.
std::vector<COLOR> MakeGrid() {
  std::vector<COLOR> colours;
  for (unsigned i = 0; i < kSteps * kSteps * kSteps; ++i) {
    COLOR colour{};
    colour.rgb.red = LevelAt(i / kSteps / kSteps);
    colour.rgb.green = LevelAt(i / kSteps % kSteps);
    colour.rgb.blue = LevelAt(i % kSteps);
    colours.push_back(colour);
  }
  return colours;
}

// As greys they are their first channel.
std::vector<COLOR> MakeGreys() {
  std::vector<COLOR> colours(kLevels);
  for (WORD level = 0; level < kLevels; ++level) {
    COLOR& colour = colours[level];
    colour.rgb.red = colour.rgb.green = colour.rgb.blue = static_cast<WORD>(level * 257);
  }
  return colours;
}

bool Differs(WORD a, WORD b) { return std::abs(static_cast<int>(a) - static_cast<int>(b)) > kRounding * 257; }
bool Differ(const COLOR& a, const COLOR& b) {
  return Differs(a.rgb.red, b.rgb.red) || Differs(a.rgb.green, b.rgb.green) || Differs(a.rgb.blue, b.rgb.blue);
}

}  // namespace

std::shared_ptr<const ColourProfile> ColourProfile::Read(ByteSpan profile, bool is_grey) {
  if (profile.empty() || profile.size() > kLongestProfile) return nullptr;
  const ColourSystem system;
  if (!system.IsComplete()) return nullptr;
  // The call only reads, though its parameter is not const.
  const Profile read = Open(system, PROFILE_MEMBUFFER, const_cast<std::uint8_t*>(profile.data()), profile.size());
  PROFILEHEADER header{};
  if (!read || system.header(read.get(), &header) == FALSE) return nullptr;
  const bool of_greys = is_grey && header.phDataColorSpace == kGrey;
  if (!of_greys && header.phDataColorSpace != kRgb) return nullptr;
  const Transform transform = Create(system, read.get());
  if (!transform) return nullptr;
  std::vector<COLOR> from = of_greys ? MakeGreys() : MakeGrid();
  std::vector<COLOR> to(from.size());
  if (system.translate(transform.get(), from.data(), static_cast<DWORD>(from.size()), of_greys ? COLOR_GRAY : COLOR_RGB,
                       to.data(), COLOR_RGB) == FALSE ||
      std::equal(from.begin(), from.end(), to.begin(), std::not_fn(Differ))) {
    return nullptr;
  }
  std::shared_ptr<ColourProfile> colours(new ColourProfile);
  for (const COLOR& colour : to) {
    colours->grid_.push_back(Lanes{Narrow(colour.rgb.red)} << kRedLane | Lanes{Narrow(colour.rgb.green)} << kGreenLane |
                             Narrow(colour.rgb.blue));
  }
  return colours;
}

// A mix of the four grid colours around the pixel: of the one below it, and of those that are met on the way to the one
// above it, along the axes in the order of their shares.
ColourProfile::Lanes ColourProfile::Mixed(Pixel pixel) const {
  std::size_t at = 0;
  struct Axis {
    unsigned share;
    std::size_t next;
  };
  const auto enter = [&at](Pixel level, std::size_t next) {
    const unsigned place = level * (kSteps - 1) + (level + 4U) / 8U;
    const unsigned step = std::min(place / kWhole, kSteps - 2);
    at += step * next;
    return Axis{place - step * kWhole, next};
  };
  Axis first = enter(pixel >> 16U & 0xFFU, std::size_t{kSteps} * kSteps);
  Axis second = enter(pixel >> 8U & 0xFFU, kSteps);
  Axis third = enter(pixel & 0xFFU, 1);
  if (first.share < second.share) std::swap(first, second);
  if (second.share < third.share) std::swap(second, third);
  if (first.share < second.share) std::swap(first, second);
  constexpr Lanes kHalf = Lanes{kWhole / 2} << kRedLane | Lanes{kWhole / 2} << kGreenLane | kWhole / 2;
  Lanes sum = kHalf + grid_[at] * (kWhole - first.share);
  sum += grid_[at += first.next] * (first.share - second.share);
  sum += grid_[at += second.next] * (second.share - third.share);
  sum += grid_[at += third.next] * third.share;
  return sum;
}

Pixel ColourProfile::Converted(Pixel pixel) const {
  const Lanes sum = grid_.size() == kLevels ? grid_[pixel & 0xFFU] * kWhole : Mixed(pixel);
  const auto channel = [sum](unsigned lane) { return static_cast<Pixel>(sum >> (lane + 8U) & 0xFFU); };
  return (pixel & 0xFF000000U) | channel(kRedLane) << 16U | channel(kGreenLane) << 8U | channel(0);
}

void ColourProfile::ToScreen(std::span<Pixel> row) const {
  ConvertUnmultiplied(row, [this](std::span<Pixel> opaque) {
    std::ranges::transform(opaque, opaque.begin(), [this](Pixel pixel) { return Converted(pixel); });
  });
}

}  // namespace quorvale
