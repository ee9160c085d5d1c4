#include <algorithm>
#include <cstddef>

#include "toolkit/surface.h"

namespace quorvale {
namespace {

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
  if (left + kGrownBlock <= known.right && FillBlock(Pixels().Row(y) + left, known.left - left, known.colour)) {
    dirty_.Add(y, left, known.left);
  } else {
    FillUnknown(y, left, known.left, known.colour);
  }
  known.left = left;
}

void Surface::GrowRight(KnownRun& known, int y, int right) {
  if (right <= known.right) return;
  const int block = right - kGrownBlock;
  if (block >= known.left && FillBlock(Pixels().Row(y) + block, right - known.right, known.colour)) {
    dirty_.Add(y, known.right, right);
  } else {
    FillUnknown(y, known.right, right, known.colour);
  }
  known.right = right;
}

void Surface::FillUnknown(int y, int left, int right, Pixel colour) {
  Pixel* row = Pixels().Row(y);
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
  Pixel* row = Pixels().Row(y);
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
