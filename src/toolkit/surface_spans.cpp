#include <algorithm>
#include <cstddef>

#include "toolkit/surface.h"

namespace quorvale {
namespace {

// Pixels that are looked at together: counting has no branches, and a branch that depends on a shape's
// edge costs more than the few pixels that a step adds there.
constexpr int kGrownBlock = 8;
constexpr int kLongBlock = 16;

template <int kBlock>
int CountEqual(const Pixel* pixels, Pixel colour) {
  int equal = 0;
  for (int i = 0; i < kBlock; ++i) equal += pixels[i] == colour ? 1 : 0;
  return equal;
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
    if (left < same.left) {
      FillBeside(same, y, left, same.left, left);
      same.left = left;
    }
    if (right > same.right) {
      FillBeside(same, y, same.right, right, right - kGrownBlock);
      same.right = right;
    }
    if (rest.colour != colour) rest.Cut(left, right);
    return;
  }

  FillUnknown(y, left, right, colour);
  known.one.Cut(left, right);
  known.other.Cut(left, right);
  KnownRun& shorter = known.one.Length() < known.other.Length() ? known.one : known.other;
  if (right - left >= shorter.Length()) shorter = {left, right, colour};
}

// When none of the new pixels has the colour yet, the block that holds them and reaches into the run has
// it in all its other pixels, and may be filled as a whole.
void Surface::FillBeside(const KnownRun& known, int y, int left, int right, int block) {
  Pixel* pixels = Pixels().Row(y) + block;
  const bool fits = block >= std::min(left, known.left) && block + kGrownBlock <= std::max(right, known.right);
  if (fits && CountEqual<kGrownBlock>(pixels, known.colour) == kGrownBlock - (right - left)) {
    std::fill_n(pixels, kGrownBlock, known.colour);
    dirty_.Add(y, left, right);
  } else {
    FillUnknown(y, left, right, known.colour);
  }
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
