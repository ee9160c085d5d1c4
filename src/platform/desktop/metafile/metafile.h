#pragma once

#include <QImage>
#include <chrono>
#include <cstdint>
#include <vector>

#include "platform/desktop/metafile/device_state.h"
#include "platform/desktop/metafile/metafile_header.h"
#include "toolkit/pixel_view.h"

namespace quorvale {

// A metafile's bytes and what is known of them.
class Metafile {
 public:
  // Fails with kBadPicture if the header is damaged, or the file before anything is drawn.
  explicit Metafile(std::vector<std::uint8_t> bytes);

  TwipSize NaturalSize() const { return header_.natural; }

  // The pixels of `part` of the picture scaled to `size`: RGB32 or ARGB32_Premultiplied. Takes two
  // seconds at the most; what was drawn by then is the picture. Null if there is no memory.
  QImage Render(QSize size, const QRect& part) const;

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
  QImage RenderOverBackgrounds(QSize size, const QTransform& to_target, double unit, Pass pass) const;

  std::vector<std::uint8_t> bytes_;
  MetafileHeader header_;
};

}  // namespace quorvale
