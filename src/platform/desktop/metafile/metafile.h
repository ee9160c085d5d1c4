#pragma once

#include <QImage>
#include <chrono>
#include <cstdint>
#include <vector>

#include "platform/desktop/metafile/device_state.h"
#include "platform/desktop/metafile/metafile_header.h"
#include "toolkit/pixel_view.h"

namespace quorvale {

// What a metafile draws.
struct MetafileImage {
  // ARGB32_Premultiplied. Null if there is no memory for it.
  QImage image;
  // Some operations make of the background something else altogether, like its inverse. Then `image` is
  // what comes out on black, and this, on white; null otherwise.
  QImage on_white;
};

// A metafile's bytes and what is known of them.
class Metafile {
 public:
  // Fails with kBadPicture if the header is damaged, or the file before anything is drawn.
  explicit Metafile(std::vector<std::uint8_t> bytes);

  TwipSize NaturalSize() const { return header_.natural; }

  // The pixels of `part` of the picture scaled to `size`. Takes two seconds at the most; what was drawn
  // by then is the picture.
  MetafileImage Render(QSize size, const QRect& part) const;

 private:
  struct Pass {
    std::chrono::steady_clock::time_point until;
    std::size_t most_records = 0;
    bool over_background = false;
  };
  struct Played {
    std::size_t records = 0;
    bool needs_background = false;
    QRectF drawn;
  };

  RecordStream Records() const;
  void Check() const;
  void FindWmfSize();
  DeviceState InitialState() const;
  Played Play(QImage& target, const QTransform& to_target, double unit, const Pass& pass) const;
  MetafileImage RenderOverBackgrounds(QSize size, const QTransform& to_target, double unit, Pass pass) const;

  std::vector<std::uint8_t> bytes_;
  MetafileHeader header_;
};

}  // namespace quorvale
