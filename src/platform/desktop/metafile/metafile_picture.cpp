#include "platform/desktop/metafile/metafile_picture.h"

#include <QTransform>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>

#include "platform/desktop/metafile/record_values.h"

namespace quorvale {

namespace metafile {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPlayingTime{2000};
constexpr std::size_t kMostRecords = 2'000'000;
// Bytes. The objects and images made from them take several times as much memory.
constexpr std::size_t kLargestFile = std::size_t{64} << 20U;
// Pictures are drawn at twice the size and averaged. That softens edges, and adjoining areas leave no seam as they
// would with antialiasing. Large pictures are drawn at their own size, to save memory.
constexpr int kSamples = 2;
constexpr std::int64_t kMostSampledPixels = std::int64_t{16} << 20U;

// A WMF file without a size has a window of unknown units: up to this size pixels, above, where it would exceed any
// screen, twips.
constexpr double kLargestInPixels = 2048;
constexpr double kTwipsPerScreenPixel = 15;

// Averages squares of pixels.
QImage Smaller(const QImage& image, int samples) {
  if (image.isNull()) return image;
  QImage small(image.width() / samples, image.height() / samples, image.format());
  if (small.isNull()) return small;
  const auto area = static_cast<unsigned>(samples * samples);
  for (int y = 0; y < small.height(); ++y) {
    auto* to = reinterpret_cast<QRgb*>(small.scanLine(y));
    for (int x = 0; x < small.width(); ++x) {
      unsigned sums[4] = {};
      for (int row = 0; row < samples; ++row) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y * samples + row));
        const QRgb* from = line + static_cast<std::ptrdiff_t>(x) * samples;
        for (int i = 0; i < samples; ++i) {
          for (unsigned channel = 0; channel < 4; ++channel) sums[channel] += from[i] >> 8U * channel & 0xFFU;
        }
      }
      QRgb pixel = 0;
      for (unsigned channel = 0; channel < 4; ++channel) pixel |= (sums[channel] + area / 2) / area << 8U * channel;
      to[x] = pixel;
    }
  }
  return small;
}

}  // namespace

Player::Player(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)), header_(ReadHeader(bytes_)) {
  if (bytes_.size() > kLargestFile) FailLoad("Picture too large");
  Check();
  if (header_.format == Format::kWmf && header_.window.isNull()) FindWmfSize();
}

RecordStream Player::Records() const { return {header_.format, ByteSpan(bytes_).subspan(header_.first_record)}; }

void Player::Check() const {
  const RecordTable& table = RecordsOf(header_.format);
  RecordStream records = Records();
  while (const auto record = records.Next()) {
    const RecordHandler* handler = table.Find(record->type);
    if (handler != nullptr && handler->effect == kDraws) return;
  }
  if (!records.Ended()) FailLoad("Damaged metafile");
}

void Player::FindWmfSize() {
  Mapping mapping(header_.device_pixels, header_.device_millimetres);
  mapping.SetMode(MM_ANISOTROPIC);
  QSizeF window;
  QSizeF viewport;
  RecordStream records = Records();
  while (const auto record = records.Next()) {
    ByteReader reader(record->bytes, record->head);
    if (record->type == META_SETMAPMODE) {
      mapping.SetMode(reader.U16());
    } else if (record->type == META_SETWINDOWEXT && window.isEmpty()) {
      const QPointF extent = WmfPoint(reader);
      window = {std::abs(extent.x()), std::abs(extent.y())};
    } else if (record->type == META_SETVIEWPORTEXT && viewport.isEmpty()) {
      const QPointF extent = WmfPoint(reader);
      viewport = {std::abs(extent.x()), std::abs(extent.y())};
    }
  }
  if (!mapping.IsFixed() && !viewport.isEmpty()) {
    SetWmfSize(header_, viewport.width(), viewport.height());
    header_.window = QRectF(QPointF(), window.isEmpty() ? viewport : window);
  } else if (!window.isEmpty()) {
    double scale = 1;
    if (mapping.IsFixed()) {
      scale = std::abs(mapping.PageX());
    } else if (std::max(window.width(), window.height()) > kLargestInPixels) {
      scale = 1 / kTwipsPerScreenPixel;
    }
    SetWmfSize(header_, window.width() * scale, window.height() * scale);
    header_.window = QRectF(QPointF(), window);
  } else {
    // The header has no size, so play the file once and take the bounds of what it draws.
    header_.window = QRectF(QPointF(), header_.frame.size());
    QImage dot(1, 1, QImage::Format_RGB32);
    const Pass pass{Clock::now() + kPlayingTime / 2, kMostRecords, true};
    const QRectF drawn = Play(dot, {}, 1, pass).drawn;
    if (drawn.isEmpty()) return;
    SetWmfSize(header_, drawn.width(), drawn.height());
    header_.window = QRectF(drawn.topLeft(), header_.frame.size());
  }
}

DeviceState Player::InitialState() const {
  DeviceState state(Mapping(header_.device_pixels, header_.device_millimetres));
  if (header_.format == Format::kWmf) state.mapping.Fit(header_.window, header_.frame);
  return state;
}

Player::Played Player::Play(QImage& target, const QTransform& to_target, double unit, const Pass& pass) const {
  const CanvasSetting setting{.to_target = to_target,
                              .unit = unit,
                              .advanced = header_.format == Format::kEmf,
                              .over_background = pass.over_background,
                              .until = pass.until};
  Canvas canvas(target, setting, InitialState());
  ObjectTable objects;
  const Playback playback{canvas, objects};
  const RecordTable& table = RecordsOf(header_.format);
  RecordStream records = Records();
  Played played;
  while (played.records < pass.most_records && !canvas.NeedsBackground() && !canvas.OutOfTime()) {
    const auto record = records.Next();
    if (!record) break;
    ++played.records;
    const RecordHandler* handler = table.Find(record->type);
    if (handler == nullptr) continue;
    ByteReader reader(record->bytes, record->head);
    handler->play(playback, reader);
  }
  played.needs_background = canvas.NeedsBackground();
  played.drawn = canvas.Drawn();
  return played;
}

Drawing Player::Render(QSize size, const QRect& part) const {
  if (size.isEmpty() || part.isEmpty() || header_.frame.isEmpty()) return {};
  const std::int64_t pixels = std::int64_t{part.width()} * part.height();
  const int samples = pixels * kSamples * kSamples <= kMostSampledPixels ? kSamples : 1;
  const QRectF& frame = header_.frame;
  const QTransform to_target = QTransform::fromTranslate(-frame.x(), -frame.y()) *
                               QTransform::fromScale(size.width() / frame.width(), size.height() / frame.height()) *
                               QTransform::fromTranslate(-part.x(), -part.y()) *
                               QTransform::fromScale(samples, samples);
  Drawing made{QImage(part.size() * samples, QImage::Format_ARGB32_Premultiplied), {}};
  if (made.image.isNull()) return {};
  made.image.fill(Qt::transparent);
  const Pass pass{Clock::now() + kPlayingTime, kMostRecords, false};
  if (Play(made.image, to_target, samples, pass).needs_background) {
    made = RenderOverBackgrounds(made.image.size(), to_target, samples, pass);
  }
  if (samples == 1) return made;
  return {Smaller(made.image, samples), Smaller(made.on_white, samples)};
}

Drawing Player::RenderOverBackgrounds(QSize size, const QTransform& to_target, double unit, Pass pass) const {
  Drawing made{QImage(size, QImage::Format_RGB32), QImage(size, QImage::Format_RGB32)};
  if (made.image.isNull() || made.on_white.isNull()) return {};
  made.image.fill(Qt::black);
  made.on_white.fill(Qt::white);
  const auto now = Clock::now();
  pass.over_background = true;
  pass.until = now + (pass.until - now) / 2;
  // Both images must stop at the same record.
  pass.most_records = Play(made.image, to_target, unit, pass).records;
  pass.until = now + kPlayingTime;
  Play(made.on_white, to_target, unit, pass);
  return made;
}

}  // namespace metafile

namespace {

// Interpolates each channel between the pictures on black and on white by the level of the background.
Pixel Between(Pixel on_black, Pixel on_white, Pixel ground) {
  const auto channel = [&](unsigned shift) {
    const auto black = static_cast<int>(on_black >> shift & 0xFFU);
    const auto white = static_cast<int>(on_white >> shift & 0xFFU);
    const auto level = static_cast<int>(ground >> shift & 0xFFU);
    return static_cast<Pixel>(black + (white - black) * level / 255) << shift;
  };
  return 0xFF000000U | channel(16) | channel(8) | channel(0);
}

}  // namespace

bool IsMetafile(ByteSpan bytes) { return metafile::HasHeader(bytes); }

MetafilePicture::MetafilePicture(std::vector<std::uint8_t> bytes) : player_(std::move(bytes)) {}

TwipSize MetafilePicture::NaturalSize(float /*scale*/) const { return player_.NaturalSize(); }

void MetafilePicture::PaintShown(const PixelView& target, int left, int top, const PixelRect& clip) const {
  if (on_white_.isNull()) {
    Shown().Paint(target, left, top, clip);
    return;
  }
  const PixelRect& part = Shown().part;
  for (int y = clip.top; y < clip.Bottom(); ++y) {
    const int from_y = y - top - part.top;
    const int from_x = clip.left - left - part.left;
    const Pixel* black = Shown().View().Row(from_y) + from_x;
    const Pixel* white = reinterpret_cast<const Pixel*>(on_white_.constScanLine(from_y)) + from_x;
    Pixel* to = target.Row(y) + clip.left;
    for (int x = 0; x < clip.width; ++x) to[x] = Between(black[x], white[x], to[x]);
  }
}

Rendering MetafilePicture::Make(PixelSize box, const PixelRect& part, PixelMemory* /*memory*/) {
  on_white_ = {};
  if (part.IsEmpty()) return {};
  const std::size_t count = static_cast<std::size_t>(part.width) * static_cast<std::size_t>(part.height);
  if (count > kPictureMemoryLimit / sizeof(Pixel)) FailLoad("Picture too large");
  const auto [image, on_white] =
      player_.Render({box.width, box.height}, {part.left, part.top, part.width, part.height});
  if (image.isNull()) FailLoad("Picture too large");
  Rendering made;
  made.box = box;
  made.part = part;
  made.opaque = false;
  made.pixels = std::make_unique_for_overwrite<Pixel[]>(count);
  for (int y = 0; y < part.height; ++y) {
    std::copy_n(reinterpret_cast<const Pixel*>(image.constScanLine(y)), part.width, made.View().Row(y));
  }
  on_white_ = on_white;
  return made;
}

}  // namespace quorvale
