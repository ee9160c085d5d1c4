#include "toolkit/surface.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace quorvale {
namespace {

// Outside every surface, yet small enough to be squared and subtracted without loss.
constexpr double kFarthestCoordinate = 1e9;

// Lines that deviate by less than this many pixels count as horizontal or vertical.
constexpr double kStraight = 1e-6;

template <typename... Numbers>
bool AnyNan(Numbers... numbers) {
  return (std::isnan(numbers) || ...);
}

double Near(double coordinate) { return std::clamp(coordinate, -kFarthestCoordinate, kFarthestCoordinate); }

// The first pixel from 0 to `limit` whose centre is beyond `edge`.
int FirstBeyond(double edge, int limit) {
  return static_cast<int>(std::clamp(edge + 0.5, 0.0, static_cast<double>(limit)));
}

// Half the length of a disc's chord at `distance` from its centre.
double HalfChord(double radius, double distance) {
  return radius > std::abs(distance) ? std::sqrt(radius * radius - distance * distance) : 0.0;
}

struct Interval {
  double low;
  double high;
};

// The x for which `slope` * x lies from -`reach` to `reach` when shifted by `offset`.
Interval Within(double slope, double offset, double reach) {
  const double one = (-reach - offset) / slope;
  const double other = (reach - offset) / slope;
  return {std::min(one, other), std::max(one, other)};
}

// Pixels compared as a block. Counting needs no branches, and a mispredicted branch at a shape's edge costs more than
// comparing the few pixels that a step adds there.
constexpr int kGrownBlock = 8;
constexpr int kLongBlock = 16;

template <int kBlock>
int CountEqual(const Pixel* pixels, Pixel colour) {
  int equal = 0;
  for (int i = 0; i < kBlock; ++i) equal += pixels[i] == colour ? 1 : 0;
  return equal;
}

// All but `unknown` pixels of the block have the colour. Fills the block if none of the unknown ones has it.
bool FillBlock(Pixel* block, int unknown, Pixel colour) {
  if (CountEqual<kGrownBlock>(block, colour) != kGrownBlock - unknown) return false;
  std::fill_n(block, kGrownBlock, colour);
  return true;
}

}  // namespace

void Surface::Resize(int width, int height, Pixel fill) {
  width = std::max(width, 0);
  height = std::max(height, 0);
  const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  auto pixels = TakePixels(memory_.get(), count);
  std::fill_n(pixels.get(), count, fill);
  known_.assign(static_cast<std::size_t>(height), {{0, width, fill}, {}});
  pixels_ = std::move(pixels);
  seen_.reset();
  width_ = width;
  height_ = height;
  dirty_.Reset(width_, height_);
  dirty_.Add(Bounds());
}

void Surface::FillRect(const PixelRect& rect, Pixel colour) {
  const PixelRect inside = Intersect(rect, Bounds());
  if (seen_ && inside == Bounds()) {
    seen_.reset();
    dirty_.Add(inside);
  }
  CopySeen();
  for (int y = inside.top; y < inside.Bottom(); ++y) FillSpan(y, inside.left, inside.Right(), colour);
}

void Surface::DrawLine(double x1, double y1, double x2, double y2, double pen, Pixel colour) {
  if (AnyNan(x1, y1, x2, y2, pen)) return;
  x1 = Near(x1);
  y1 = Near(y1);
  x2 = Near(x2);
  y2 = Near(y2);
  pen = std::clamp(pen, 0.0, kFarthestCoordinate);
  CopySeen();
  if (std::abs(x2 - x1) > kStraight && std::abs(y2 - y1) > kStraight) {
    DrawSlantedLine(x1, y1, x2, y2, pen, colour);
    return;
  }
  const double half = pen / 2;
  const int left = FirstBeyond(std::min(x1, x2) - half, width_);
  const int right = FirstBeyond(std::max(x1, x2) + half, width_);
  const int bottom = FirstBeyond(std::max(y1, y2) + half, height_);
  for (int y = FirstBeyond(std::min(y1, y2) - half, height_); y < bottom; ++y) FillSpan(y, left, right, colour);
}

// A rectangle around the line's middle, turned to its direction: each row of it is where the strip
// along the line and the strip across it meet.
void Surface::DrawSlantedLine(double x1, double y1, double x2, double y2, double pen, Pixel colour) {
  const double length = std::hypot(x2 - x1, y2 - y1);
  const double along_x = (x2 - x1) / length;
  const double along_y = (y2 - y1) / length;
  const double half = pen / 2;
  const double reach = length / 2 + half;
  const double middle_x = (x1 + x2) / 2;
  const double middle_y = (y1 + y2) / 2;
  const double tall = reach * std::abs(along_y) + half * std::abs(along_x);
  const int bottom = FirstBeyond(middle_y + tall, height_);
  for (int y = FirstBeyond(middle_y - tall, height_); y < bottom; ++y) {
    const double down = y + 0.5 - middle_y;
    const Interval along = Within(along_x, down * along_y, reach);
    const Interval across = Within(along_y, -down * along_x, half);
    FillSpan(y, FirstBeyond(middle_x + std::max(along.low, across.low), width_),
             FirstBeyond(middle_x + std::min(along.high, across.high), width_), colour);
  }
}

void Surface::DrawCircle(double x, double y, double radius, double pen, Pixel outline, Pixel fill) {
  if (AnyNan(x, y, radius, pen) || radius < 0) return;
  CopySeen();
  x = Near(x);
  y = Near(y);
  radius = Near(radius);
  const double half = std::clamp(pen, 0.0, kFarthestCoordinate) / 2;
  const double outer = radius + half;
  const double inner = outline == fill ? 0.0 : radius - half;
  const int bottom = FirstBeyond(y + outer, height_);
  for (int row = FirstBeyond(y - outer, height_); row < bottom; ++row) {
    const double down = row + 0.5 - y;
    const double out = HalfChord(outer, down);
    const int left = FirstBeyond(x - out, width_);
    const int right = FirstBeyond(x + out, width_);
    const double in = HalfChord(inner, down);
    if (in == 0) {
      FillSpan(row, left, right, outline);
      continue;
    }
    const int fill_left = FirstBeyond(x - in, width_);
    const int fill_right = FirstBeyond(x + in, width_);
    FillSpan(row, left, fill_left, outline);
    FillSpan(row, fill_left, fill_right, fill);
    FillSpan(row, fill_right, right, outline);
  }
}

void Surface::DrawDot(double x, double y, double diameter, Pixel colour) {
  if (AnyNan(x, y, diameter)) return;
  CopySeen();
  if (x >= 0 && x < width_ && y >= 0 && y < height_) {
    FillSpan(static_cast<int>(y), static_cast<int>(x), static_cast<int>(x) + 1, colour);
  }
  DrawCircle(x, y, std::max(diameter, 0.0) / 2, 0, colour, colour);
}

PixelView Surface::Pixels() {
  CopySeen();
  return {pixels_.get(), width_, height_, width_};
}

void Surface::ShowPixels(std::shared_ptr<const Pixel[]> pixels) {
  seen_ = std::move(pixels);
  dirty_.Add(Bounds());
}

void Surface::CopySeen() {
  if (!seen_) return;
  std::copy_n(seen_.get(), static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), pixels_.get());
  known_.assign(known_.size(), {});
  seen_.reset();
}

void Surface::Changed(const PixelRect& rect) {
  const PixelRect inside = Intersect(rect, Bounds());
  dirty_.Add(inside);
  if (seen_) return;
  for (int y = inside.top; y < inside.Bottom(); ++y) {
    KnownRow& known = known_[static_cast<std::size_t>(y)];
    known.one.Cut(inside.left, inside.Right());
    known.other.Cut(inside.left, inside.Right());
  }
}

std::optional<Pixel> Surface::SolidColour(const PixelRect& rect) const {
  if (rect.IsEmpty() || seen_) return {};
  const KnownRow& first = known_[static_cast<std::size_t>(rect.top)];
  const auto is_solid = [&](Pixel colour) {
    const auto begin = known_.begin() + rect.top;
    return std::all_of(begin, begin + rect.height, [&](const KnownRow& row) {
      return row.one.Covers(rect.left, rect.Right(), colour) || row.other.Covers(rect.left, rect.Right(), colour);
    });
  };
  for (const Pixel colour : {first.one.colour, first.other.colour}) {
    if (is_solid(colour)) return colour;
  }
  return {};
}

// Keeps the longer of what is left on the two sides.
void Surface::KnownRun::Cut(int from, int to) {
  if (from >= right || to <= left) return;
  if (from - left >= right - to) {
    right = std::max(left, from);
  } else {
    left = std::min(right, to);
  }
}

void Surface::FillSpan(int y, int left, int right, Pixel colour) {
  if (left >= right) return;
  KnownRow& known = known_[static_cast<std::size_t>(y)];
  // The picture that covered the row has hardly a pixel of the colour.
  if (right - left == width_ && known.one.Length() + known.other.Length() == 0) {
    std::fill_n(RowOf(y), width_, colour);
    dirty_.Add(y, 0, width_);
    known.one = {0, width_, colour};
    return;
  }

  const bool is_one = known.one.Meets(left, right, colour);
  if (is_one || known.other.Meets(left, right, colour)) {
    KnownRun& same = is_one ? known.one : known.other;
    KnownRun& rest = is_one ? known.other : known.one;
    GrowLeft(same, y, left);
    GrowRight(same, y, right);
    if (rest.colour != colour) rest.Cut(left, right);
    return;
  }

  FillUnknown(y, left, right, colour);
  known.one.Cut(left, right);
  known.other.Cut(left, right);
  KnownRun& shorter = known.one.Length() < known.other.Length() ? known.one : known.other;
  if (right - left >= shorter.Length()) shorter = {left, right, colour};
}

// Left and right have separate functions: a processor prefetches well if an instruction's addresses follow a pattern
// from row to row, which they do on one side only.
void Surface::GrowLeft(KnownRun& known, int y, int left) {
  if (left >= known.left) return;
  if (left + kGrownBlock <= known.right && FillBlock(RowOf(y) + left, known.left - left, known.colour)) {
    dirty_.Add(y, left, known.left);
  } else {
    FillUnknown(y, left, known.left, known.colour);
  }
  known.left = left;
}

void Surface::GrowRight(KnownRun& known, int y, int right) {
  if (right <= known.right) return;
  const int block = right - kGrownBlock;
  if (block >= known.left && FillBlock(RowOf(y) + block, right - known.right, known.colour)) {
    dirty_.Add(y, known.right, right);
  } else {
    FillUnknown(y, known.right, right, known.colour);
  }
  known.right = right;
}

void Surface::FillUnknown(int y, int left, int right, Pixel colour) {
  Pixel* row = RowOf(y);
  int changed_from = left;
  int x = left;
  for (; right - x >= kLongBlock; x += kLongBlock) {
    const int equal = CountEqual<kLongBlock>(row + x, colour);
    if (equal == 0) {
      std::fill_n(row + x, kLongBlock, colour);
    } else if (equal == kLongBlock) {
      dirty_.Add(y, changed_from, x);
      changed_from = x + kLongBlock;
    } else {
      changed_from = FillMixed(y, x, x + kLongBlock, colour, changed_from);
    }
  }
  changed_from = FillMixed(y, x, right, colour, changed_from);
  dirty_.Add(y, changed_from, right);
}

// All pixels from `changed_from` to `left` have changed and are not dirty yet; gives the same for `right`.
int Surface::FillMixed(int y, int left, int right, Pixel colour, int changed_from) {
  Pixel* row = RowOf(y);
  for (int x = left; x < right; ++x) {
    if (row[x] != colour) {
      row[x] = colour;
      continue;
    }
    dirty_.Add(y, changed_from, x);
    changed_from = x + 1;
  }
  return changed_from;
}

}  // namespace quorvale
