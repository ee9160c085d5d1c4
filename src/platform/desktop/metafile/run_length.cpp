#include "platform/desktop/metafile/run_length.h"

#include <algorithm>

namespace quorvale {
namespace {

class RunReader {
 public:
  RunReader(ByteSpan bytes, int depth, const std::vector<QRgb>& colours, QImage& image)
      : reader_(bytes), depth_(depth), colours_(colours), image_(image), y_(image.height() - 1) {}

  void Read() {
    while (reader_.Left() >= 2 && y_ >= 0) {
      const unsigned count = reader_.U8();
      const unsigned value = reader_.U8();
      if (count > 0) {
        for (unsigned i = 0; i < count && x_ < image_.width(); ++i) Put(depth_ == 8 ? value : Half(value, i));
      } else if (!Escape(value)) {
        return;
      }
    }
  }

 private:
  static unsigned Half(unsigned byte, unsigned i) { return i % 2 == 0 ? byte >> 4U : byte & 0xFU; }

  // However long a row is, `x_` stops at the image's edge.
  void Put(unsigned number) {
    if (x_ == image_.width()) return;
    if (number < colours_.size()) reinterpret_cast<QRgb*>(image_.scanLine(y_))[x_] = colours_[number];
    ++x_;
  }

  // False at the end.
  bool Escape(unsigned value) {
    if (value == 0) {
      x_ = 0;
      --y_;
    } else if (value == 1) {
      return false;
    } else if (value == 2) {
      x_ = std::min(x_ + reader_.U8(), image_.width());
      y_ -= reader_.U8();
    } else {
      unsigned byte = 0;
      for (unsigned i = 0; i < value; ++i) {
        if (depth_ == 8 || i % 2 == 0) byte = reader_.U8();
        Put(depth_ == 8 ? byte : Half(byte, i));
      }
      // Such a run is padded to two bytes.
      if (reader_.At() % 2 != 0) reader_.Skip(1);
    }
    return true;
  }

  ByteReader reader_;
  int depth_;
  const std::vector<QRgb>& colours_;
  QImage& image_;
  int x_ = 0;
  int y_;
};

}  // namespace

void ReadRuns(ByteSpan bytes, int depth, const std::vector<QRgb>& colours, QImage& image) {
  RunReader(bytes, depth, colours, image).Read();
}

}  // namespace quorvale
