#include "platform/headless/headless_graphics.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <sstream>
#include <utility>

#include "base/failure.h"
#include "base/text.h"

namespace quorvale {
namespace {

struct Cell {
  int width = 0;
  int height = 0;
};

Cell CellOf(const Font& font, float scale) {
  const double em = ToPixels(font.points * kTwipsPerPoint, scale);
  return {.width = std::max(1, static_cast<int>(std::lround(em / 2))),
          .height = std::max(1, static_cast<int>(std::lround(em * 1.2)))};
}

constexpr int kLargestSide = 100'000;
constexpr std::size_t kColourDigits = 6;
constexpr Pixel kOpaque = 0xFF000000U;

class StripedPicture : public Picture {
 public:
  StripedPicture(int width, int height, std::vector<Pixel> colours, std::string date_taken)
      : width_(width), height_(height), colours_(std::move(colours)), date_taken_(std::move(date_taken)) {}

  TwipSize NaturalSize(float scale) const override {
    return {.width = static_cast<float>(width_) * kTwipsPerPixel / scale,
            .height = static_cast<float>(height_) * kTwipsPerPixel / scale};
  }

  std::string DateTaken() const override { return date_taken_; }

  void Paint(const PixelView& target, const PixelRect& box, const PixelRect& clip) override {
    const PixelRect seen = Intersect(Intersect(box, clip), target.Bounds());
    for (int y = seen.top; y < seen.Bottom(); ++y) {
      for (int x = seen.left; x < seen.Right(); ++x) target.Row(y)[x] = At(x - box.left, box.width);
    }
  }

  std::shared_ptr<const Pixel[]> Covering(PixelSize target, const PixelRect& box) override {
    const PixelRect all{0, 0, target.width, target.height};
    if (Intersect(box, all) != all) return nullptr;
    auto pixels = std::make_shared<Pixel[]>(static_cast<std::size_t>(target.width) * target.height);
    Paint({pixels.get(), target.width, target.height, target.width}, box, all);
    return pixels;
  }

 private:
  // The colour of column `x` of `width`, taken at its middle.
  Pixel At(int x, int width) const {
    const double across = (x + 0.5) / width;
    return colours_[static_cast<std::size_t>(across * static_cast<double>(colours_.size()))];
  }

  int width_;
  int height_;
  std::vector<Pixel> colours_;
  std::string date_taken_;
};

std::optional<Pixel> ParseColour(const std::string& text) {
  Pixel value = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, 16);
  if (text.size() != kColourDigits || result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return kOpaque | value;
}

std::shared_ptr<Picture> Decode(const std::string& content) {
  std::istringstream stream(content);
  std::string word;
  int width = 0;
  int height = 0;
  if (!(stream >> word >> width >> height) || word != "picture") return nullptr;
  if (width < 1 || height < 1 || width > kLargestSide || height > kLargestSide) return nullptr;
  std::vector<Pixel> colours;
  std::string date_taken;
  while (stream >> word) {
    if (word == "taken") {
      stream >> date_taken;
      break;
    }
    const auto colour = ParseColour(word);
    if (!colour) return nullptr;
    colours.push_back(*colour);
  }
  if (colours.empty()) return nullptr;
  return std::make_shared<StripedPicture>(width, height, std::move(colours), std::move(date_taken));
}

}  // namespace

PixelRect BlockTextPainter::Measure(const std::string& text, const Font& font, float scale) {
  const Cell cell = CellOf(font, scale);
  return {0, 0, cell.width * static_cast<int>(Length(text)), cell.height};
}

PixelRect BlockTextPainter::Draw(const PixelView& target, int left, int top, const std::string& text, const Font& font,
                                 Colour colour, float scale) {
  const Cell cell = CellOf(font, scale);
  const int block_width = std::max(1, cell.width - 1);
  const int block_height = std::max(1, cell.height - 1);
  const int count = static_cast<int>(Length(text));
  for (int i = 0; i < count; ++i) {
    if (Left(Mid(text, static_cast<std::size_t>(i) + 1), 1) == " ") continue;
    const PixelRect block = Intersect({left + i * cell.width, top, block_width, block_height}, target.Bounds());
    for (int y = block.top; y < block.Bottom(); ++y) {
      std::fill_n(target.Row(y) + block.left, block.width, ToPixel(colour));
    }
  }
  return Intersect({left, top, count * cell.width, cell.height}, target.Bounds());
}

std::shared_ptr<Picture> TextPictureLoader::Load(const std::string& path, const PicturePlace& place) {
  loads.push_back({.path = path, .box = {}, .clip = place.clip, .scale = place.scale});
  const std::size_t call = loads.size() - 1;
  std::string content;
  switch (files_.Read(path, content)) {
    case MemoryFileSystem::ReadResult::kNotFound:
      throw Failure(FailureNumber::kNotFound, "File not found", "TextPictureLoader");
    case MemoryFileSystem::ReadResult::kUnreadable:
      throw Failure(FailureNumber::kUnreadable, "File can't be read", "TextPictureLoader");
    case MemoryFileSystem::ReadResult::kRead:
      break;
  }
  auto picture = Decode(content);
  if (!picture) throw Failure(FailureNumber::kBadPicture, "Invalid picture", "TextPictureLoader");
  for (int i = 0; i < waits && place.while_waiting; ++i) place.while_waiting();
  if (place.box) loads[call].box = place.box(picture->NaturalSize(place.scale));
  loads[call].loaded = true;
  return picture;
}

std::string PictureText(int width, int height, const std::vector<std::string>& colours) {
  std::string text = "picture " + std::to_string(width) + " " + std::to_string(height);
  for (const std::string& colour : colours) text += " " + colour;
  return text;
}

}  // namespace quorvale
