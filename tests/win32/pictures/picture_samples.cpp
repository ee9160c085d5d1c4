#include "win32/pictures/picture_samples.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "platform/win32/pictures/picture_loader.h"
#include "platform/win32/pictures/wic_picture.h"
#include "support/png_chunk.h"

namespace quorvale {
namespace {

constexpr std::array<Pixel, 4> kQuarters{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF};

std::size_t QuarterAt(int x, int y, int width, int height) {
  return static_cast<std::size_t>(x >= width / 2) + 2 * static_cast<std::size_t>(y >= height / 2);
}

// A little-endian number.
template <typename Number>
std::string Bytes(Number number) {
  std::string bytes;
  for (unsigned i = 0; i < sizeof number; ++i) bytes += static_cast<char>(static_cast<std::uint64_t>(number) >> 8 * i);
  return bytes;
}
std::string Short(int number) { return Bytes(static_cast<std::uint16_t>(number)); }
std::string Long(std::size_t number) { return Bytes(static_cast<std::uint32_t>(number)); }

// The rows of a bitmap of 24 bits, padded to four bytes.
std::string Rows24(int width, int height, bool from_bottom, const Colouring& colours) {
  std::string rows;
  for (int i = 0; i < height; ++i) {
    for (int x = 0; x < width; ++x) rows += Long(colours(x, from_bottom ? height - 1 - i : i)).substr(0, 3);
    while (rows.size() % 4 != 0) rows += '\0';
  }
  return rows;
}

void DrawQuarters(HDC context, int width, int height) {
  SelectObject(context, GetStockObject(NULL_PEN));
  for (int i = 0; i < 4; ++i) {
    const Pixel pixel = kQuarters[static_cast<std::size_t>(i)];
    HBRUSH brush = CreateSolidBrush(RGB(pixel >> 16U, pixel >> 8U & 0xFFU, pixel & 0xFFU));
    HGDIOBJ before = SelectObject(context, brush);
    const int left = i % 2 * width / 2;
    const int top = i / 2 * height / 2;
    Rectangle(context, left, top, left + width / 2 + 1, top + height / 2 + 1);
    SelectObject(context, before);
    DeleteObject(brush);
  }
}

// A plain WMF file of the quarters, whose records set a window or do not.
std::string Wmf(int width, int height, bool has_window) {
  HDC context = CreateMetaFileA(nullptr);
  if (has_window) {
    SetMapMode(context, MM_ANISOTROPIC);
    SetWindowExtEx(context, width, height, nullptr);
  }
  DrawQuarters(context, width, height);
  HMETAFILE metafile = CloseMetaFile(context);
  std::string bytes(GetMetaFileBitsEx(metafile, 0, nullptr), '\0');
  GetMetaFileBitsEx(metafile, static_cast<UINT>(bytes.size()), bytes.data());
  DeleteMetaFile(metafile);
  return bytes;
}

std::string ExifTags(int orientation) {
  const std::string entry = Short(0x0112) + Short(3) + Long(1) + Short(orientation) + Short(0);
  return "II" + Short(42) + Long(8) + Short(1) + entry + Long(0);
}

std::string ExifSegment(int orientation) {
  const std::string data = std::string("Exif\0\0", 6) + ExifTags(orientation);
  const auto length = static_cast<char>(data.size() + 2);
  return std::string("\xFF\xE1\0", 3) + length + data;
}

// With the encoder of that format.
std::string Encode(const GUID& container, int width, int height, const Colouring& colours) {
  const ComApartment apartment;
  const WicFactory factory = CreateWicFactory();
  ComPointer<IStream> stream;
  CreateStreamOnHGlobal(nullptr, TRUE, stream.Out());
  ComPointer<IWICBitmapEncoder> encoder;
  factory->CreateEncoder(container, nullptr, encoder.Out());
  encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache);
  ComPointer<IWICBitmapFrameEncode> frame;
  encoder->CreateNewFrame(frame.Out(), nullptr);
  frame->Initialize(nullptr);
  frame->SetSize(static_cast<UINT>(width), static_cast<UINT>(height));
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  frame->SetPixelFormat(&format);
  std::string rows = Rows24(width, height, false, colours);
  frame->WritePixels(static_cast<UINT>(height), static_cast<UINT>(rows.size()) / static_cast<UINT>(height),
                     static_cast<UINT>(rows.size()), reinterpret_cast<BYTE*>(rows.data()));
  frame->Commit();
  encoder->Commit();
  HGLOBAL memory = nullptr;
  GetHGlobalFromStream(stream.Get(), &memory);
  ULARGE_INTEGER size{};
  stream->Seek({}, STREAM_SEEK_CUR, &size);
  std::string bytes(static_cast<const char*>(GlobalLock(memory)), size.LowPart);
  GlobalUnlock(memory);
  return bytes;
}

}  // namespace

Pixel Quarters(int x, int y, int width, int height) { return kQuarters[QuarterAt(x, y, width, height)]; }

std::string MakeBmp(int width, int height, const Colouring& colours) {
  const std::string rows = Rows24(width, height, true, colours);
  return "BM" + Long(54 + rows.size()) + Long(0) + Long(54) + Long(40) + Long(static_cast<std::size_t>(width)) +
         Long(static_cast<std::size_t>(height)) + Short(1) + Short(24) + std::string(24, '\0') + rows;
}

std::string MakeJpeg(int width, int height, const Colouring& colours, int orientation) {
  std::string bytes = Encode(GUID_ContainerFormatJpeg, width, height, colours);
  return orientation == 0 ? bytes : bytes.insert(2, ExifSegment(orientation));
}

std::string MakePng(int width, int height, const Colouring& colours, int orientation) {
  std::string bytes = Encode(GUID_ContainerFormatPng, width, height, colours);
  return orientation == 0 ? bytes : bytes.insert(kPngHeaderEnd, PngChunk("eXIf", ExifTags(orientation)));
}

std::string MakeTiff(int width, int height, const Colouring& colours, int orientation) {
  // All rows in one strip, then the depths of the three colours, and the tags.
  std::string rows;
  for (int i = 0; i < width * height; ++i) {
    const std::string colour = Long(colours(i % width, i / width));
    rows += {colour[2], colour[1], colour[0]};
  }
  const std::size_t depths = 8 + rows.size();
  const struct {
    int tag;
    std::size_t count;
    std::size_t value;
  } tags[] = {{256, 1, static_cast<std::size_t>(width)},
              {257, 1, static_cast<std::size_t>(height)},
              {258, 3, depths},
              {259, 1, 1},
              {262, 1, 2},
              {273, 1, 8},
              {274, 1, static_cast<std::size_t>(orientation)},
              {277, 1, 3},
              {278, 1, static_cast<std::size_t>(height)},
              {279, 1, rows.size()}};
  std::string directory = Short(8) + Short(8) + Short(8) + Short(static_cast<int>(std::size(tags)));
  for (const auto& [tag, count, value] : tags) directory += Short(tag) + Short(3) + Long(count) + Long(value);
  return "II" + Short(42) + Long(depths + 6) + rows + directory + Long(0);
}

std::string MakeGif(int width, int height, const PixelRect& part, const std::function<bool(int x, int y)>& is_clear) {
  constexpr int kClearColour = 4;
  std::array<Pixel, 128> palette{};
  std::copy(kQuarters.begin(), kQuarters.end(), palette.begin());
  return GifFile(width, height, part, palette, kClearColour, [&](int x, int y) {
    return is_clear(x, y) ? kClearColour : static_cast<int>(QuarterAt(x, y, part.width, part.height));
  });
}

std::string MakeEmf(int width, int height) {
  // In hundredths of a millimetre.
  HDC screen = CreateCompatibleDC(nullptr);
  const RECT frame{0, 0, MulDiv(width, 100 * GetDeviceCaps(screen, HORZSIZE), GetDeviceCaps(screen, HORZRES)),
                   MulDiv(height, 100 * GetDeviceCaps(screen, VERTSIZE), GetDeviceCaps(screen, VERTRES))};
  HDC context = CreateEnhMetaFileA(screen, nullptr, &frame, nullptr);
  DrawQuarters(context, width, height);
  HENHMETAFILE metafile = CloseEnhMetaFile(context);
  std::string bytes(GetEnhMetaFileBits(metafile, 0, nullptr), '\0');
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), reinterpret_cast<BYTE*>(bytes.data()));
  DeleteEnhMetaFile(metafile);
  DeleteDC(screen);
  return bytes;
}

std::string MakePlaceableWmf(int width, int height, int units_per_inch) {
  const std::string head =
      Long(0x9AC6CDD7) + Short(0) + Long(0) + Short(width) + Short(height) + Short(units_per_inch) + Long(0);
  unsigned sum = 0;
  for (std::size_t i = 0; i < head.size(); i += 2) {
    sum ^= static_cast<std::uint8_t>(head[i]) | static_cast<unsigned>(static_cast<std::uint8_t>(head[i + 1])) << 8U;
  }
  return head + Short(static_cast<int>(sum)) + Wmf(width, height, false);
}

std::string MakePlainWmf(int width, int height) { return Wmf(width, height, true); }

std::string WithRecords(const std::string& metafile, const std::vector<MetafileRecord>& records, RecordPlace place) {
  const bool is_enhanced = metafile[0] == '\x01' && metafile[2] == '\0';
  std::string added;
  std::size_t longest = 0;
  for (const auto& [enhanced_type, plain_type, numbers] : records) {
    if (is_enhanced) {
      added += Long(static_cast<std::size_t>(enhanced_type)) + Long(8 + 4 * numbers.size());
    } else {
      added += Long(3 + numbers.size()) + Short(plain_type);
    }
    for (const int number : numbers) added += is_enhanced ? Long(static_cast<std::uint32_t>(number)) : Short(number);
    longest = std::max(longest, 3 + numbers.size());
  }
  constexpr std::size_t kEnhancedEnd = 20;
  constexpr std::size_t kPlainEnd = 6;
  constexpr std::size_t kPlainHead = 18;
  const std::size_t head = is_enhanced ? static_cast<std::uint8_t>(metafile[4]) : kPlainHead;
  std::string bytes = metafile;
  bytes.insert(place == RecordPlace::kFirst ? head : bytes.size() - (is_enhanced ? kEnhancedEnd : kPlainEnd), added);
  if (is_enhanced) {
    std::uint32_t count = 0;
    std::copy_n(bytes.data() + 52, sizeof count, reinterpret_cast<char*>(&count));
    bytes.replace(48, 8, Long(bytes.size()) + Long(count + records.size()));
  } else {
    bytes.replace(6, 4, Long(bytes.size() / 2));
    bytes.replace(12, 4, Long(std::max<std::size_t>(longest, static_cast<std::uint8_t>(bytes[12]))));
  }
  return bytes;
}

std::vector<std::uint8_t> MakeProfile(const Primaries& primaries) {
  const auto big = [](std::size_t number) {
    const std::string bytes = Long(number);
    return std::string(bytes.rbegin(), bytes.rend());
  };
  const auto fixed = [&](double number) { return big(static_cast<std::uint32_t>(std::lround(number * 65536))); };
  // Where the curve is a power: (a x + b) ^ g, c x below d.
  std::string curve = "para" + big(0) + std::string("\0\3\0\0", 4);
  for (const double number : {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045}) curve += fixed(number);
  std::string values = "XYZ " + big(0) + fixed(0.9642) + fixed(1) + fixed(0.8249) + curve;
  const std::size_t first_value = 128 + 4 + 7 * 12;
  std::string table = big(7) + "wtpt" + big(first_value) + big(20);
  for (std::size_t i = 0; i < 3; ++i) {
    const std::string colour(1, "rgb"[i]);
    table += colour + "XYZ" + big(first_value + values.size()) + big(20);
    table += colour + "TRC" + big(first_value + 20) + big(curve.size());
    values += "XYZ " + big(0) + fixed(primaries[3 * i]) + fixed(primaries[3 * i + 1]) + fixed(primaries[3 * i + 2]);
  }
  std::string head = big(first_value + values.size()) + big(0) + big(0x04200000) + "mntrRGB XYZ ";
  head.resize(36);
  head += "acsp";
  head.resize(68);
  head += fixed(0.9642) + fixed(1) + fixed(0.8249);
  head.resize(128);
  const std::string bytes = head + table + values;
  return {bytes.begin(), bytes.end()};
}

std::string WithProfile(std::string picture, const std::string& profile) {
  const auto high_and_low = [](std::size_t number) { return Short(static_cast<int>(number)); };
  if (picture[0] == '\xFF') {
    const std::string data = std::string("ICC_PROFILE\0\1\1", 14) + profile;
    const std::string length = high_and_low(data.size() + 2);
    return picture.insert(2, std::string("\xFF\xE2") + length[1] + length[0] + data);
  }
  // One block that is stored as it is.
  const std::string size = high_and_low(profile.size());
  const std::string inverse = high_and_low(~profile.size());
  std::uint32_t low = 1;
  std::uint32_t high = 0;
  for (const char c : profile) {
    low = (low + static_cast<std::uint8_t>(c)) % 65521;
    high = (high + low) % 65521;
  }
  const std::string sum = Long(high << 16U | low);
  const std::string packed =
      std::string("x\x01\x01", 3) + size + inverse + profile + std::string(sum.rbegin(), sum.rend());
  return picture.insert(kPngHeaderEnd, PngChunk("iCCP", std::string("p\0\0", 3) + packed));
}

std::shared_ptr<Picture> Show(const std::string& path, const PixelRect& box, Screen& screen) {
  return ShowBy(Win32PictureLoader(), path, box, screen);
}

int Difference(Pixel a, Pixel b) {
  int most = 0;
  for (const unsigned shift : {0U, 8U, 16U, 24U}) {
    most = std::max(most, std::abs(static_cast<int>(a >> shift & 0xFFU) - static_cast<int>(b >> shift & 0xFFU)));
  }
  return most;
}

}  // namespace quorvale
