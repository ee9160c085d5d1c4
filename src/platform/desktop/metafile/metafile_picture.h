#pragma once

#include <QImage>
#include <chrono>
#include <cstdint>
#include <vector>

#include "base/byte_reader.h"
#include "platform/desktop/metafile/device_state.h"
#include "platform/desktop/metafile/header.h"
#include "platform/desktop/metafile/records.h"
#include "platform/pictures/rendered_picture.h"

namespace quorvale {

namespace metafile {

// The picture that a metafile makes.
struct Drawing {
  // ARGB32_Premultiplied. Null if out of memory.
  QImage image;
  // Null unless raster operations read the background, for example to invert it. Then `image` is the picture on
  // black, this the one on white, both RGB32.
  QImage on_white;
};

// Plays the records of a metafile.
class Player {
 public:
  // Fails with kBadPicture if the header is damaged, or if the records are before the first that draws.
  explicit Player(std::vector<std::uint8_t> bytes);

  TwipSize NaturalSize() const { return header_.natural; }

  // The pixels of `part` of the picture scaled to `size`. Stops after two seconds with what is drawn by then.
  Drawing Render(QSize size, const QRect& part) const;

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
  Drawing RenderOverBackgrounds(QSize size, const QTransform& to_target, double unit, Pass pass) const;

  std::vector<std::uint8_t> bytes_;
  Header header_;
};

}  // namespace metafile

// Whether a file that begins with these bytes is a WMF or EMF file.
bool IsMetafile(ByteSpan bytes);

// A WMF or EMF file, drawn anew for each size at which it is shown.
class MetafilePicture : public RenderedPicture {
 public:
  // Fails with kBadPicture.
  explicit MetafilePicture(std::vector<std::uint8_t> bytes);

  TwipSize NaturalSize(float scale) const override;

 private:
  Rendering Make(PixelSize box, const PixelRect& part, PixelMemory* memory) override;
  void PaintShown(const PixelView& target, int left, int top, const PixelRect& clip) const override;

  metafile::Player player_;
  // Null unless the drawing depends on its background: then Shown() is the drawing on black, this the one on white.
  QImage on_white_;
};

}  // namespace quorvale
