#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "support/picture_samples.h"
#include "toolkit/picture.h"

namespace quorvale {

// The colour of each pixel of a picture to make.
using Colouring = std::function<Pixel(int x, int y)>;

// Quarters of red, green, blue and white, row by row.
Pixel Quarters(int x, int y, int width, int height);

// The bytes of a picture file.
std::string MakeBmp(int width, int height, const Colouring& colours);
// `orientation` is the Exif number, 1 to 8. 0: no camera data.
std::string MakeJpeg(int width, int height, const Colouring& colours, int orientation = 0);
std::string MakePng(int width, int height, const Colouring& colours, int orientation = 0);
std::string MakeTiff(int width, int height, const Colouring& colours, int orientation = 1);
// A canvas with a picture of four quarters on a part of it. Where `is_clear`, it is transparent.
std::string MakeGif(int width, int height, const PixelRect& part, const std::function<bool(int x, int y)>& is_clear);
// Metafiles of the quarters, with a size in millimetres, in a placeable header, or only in the records.
std::string MakeEmf(int width, int height);
std::string MakePlaceableWmf(int width, int height, int units_per_inch);
std::string MakePlainWmf(int width, int height);

// Adds records to a metafile of the functions above. Their numbers have 32 bits in an enhanced metafile, else 16.
struct MetafileRecord {
  int enhanced_type;
  int plain_type;
  std::vector<int> numbers;
};
enum class RecordPlace { kFirst, kLast };
std::string WithRecords(const std::string& metafile, const std::vector<MetafileRecord>& records, RecordPlace place);

// What red, green and blue of a colour space are made of: X, Y and Z of each.
using Primaries = std::array<double, 9>;
inline constexpr Primaries kSrgb{0.4361, 0.2225, 0.0139, 0.3851, 0.7169, 0.0971, 0.1431, 0.0606, 0.7139};
inline constexpr Primaries kDisplayP3{0.5151, 0.2412, -0.0011, 0.2920, 0.6922, 0.0419, 0.1571, 0.0666, 0.7841};

// An ICC profile with the transfer curve of sRGB.
std::vector<std::uint8_t> MakeProfile(const Primaries& primaries);
// A JPEG or PNG file of the functions above with that profile.
std::string WithProfile(std::string picture, const std::string& profile);

// Loads for that box on the screen and paints it.
std::shared_ptr<Picture> Show(const std::string& path, const PixelRect& box, Screen& screen);

// The largest difference of a channel.
int Difference(Pixel a, Pixel b);

}  // namespace quorvale
