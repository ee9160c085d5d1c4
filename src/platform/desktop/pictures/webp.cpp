#include <webp/decode.h>
#include <webp/demux.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/desktop/pictures/formats.h"

namespace quorvale {
namespace {

// The bytes after which decoding looks at the clock.
constexpr std::size_t kWebpPiece = std::size_t{256} << 10U;

constexpr bool kBlueFirst = std::endian::native == std::endian::little;

struct DeleteDemuxer {
  void operator()(WebPDemuxer* demuxer) const { WebPDemuxDelete(demuxer); }
};
struct DeleteDecoder {
  void operator()(WebPIDecoder* decoder) const { WebPIDelete(decoder); }
};

// The first frame of a file, or its only one.
struct WebpFrame {
  PixelSize canvas;
  // The frame's place on the canvas.
  PixelRect place;
  std::span<const std::uint8_t> bytes;
  bool has_alpha = false;

  bool CoversCanvas() const { return place == PixelRect{0, 0, canvas.width, canvas.height}; }
};

// The decoder scales on the way, but only a frame that is the whole canvas, and only down.
PixelSize DecodedSize(const WebpFrame& frame, PixelSize box) {
  const bool shrinks = box.width <= frame.canvas.width && box.height <= frame.canvas.height;
  if (!frame.CoversCanvas() || !shrinks) return frame.canvas;
  return {std::max(box.width, 1), std::max(box.height, 1)};
}

class WebpRows : public SequentialRows {
 public:
  WebpRows(const WebpFrame& frame, PixelSize size, const PictureFile& file)
      : SequentialRows(size), frame_(frame), size_(size), file_(file) {}

  bool IsOpaque() const override { return !frame_.has_alpha && frame_.CoversCanvas(); }
  // The decoder may hold the whole picture beside its scaled rows.
  std::size_t Memory() const override { return (Count(size_) + Count(frame_.canvas)) * sizeof(Pixel); }

 protected:
  bool GoTo(int top) override;
  bool Decode(int y, std::span<Pixel> row) override {
    // A small frame may stand on a canvas of many pixels.
    if (y >= rows_ || file_.IsOverdue()) return false;
    std::copy_n(pixels_.data() + static_cast<std::size_t>(y) * Count({size_.width, 1}) + Left(), row.size(),
                row.begin());
    return true;
  }

 private:
  static std::size_t Count(PixelSize size) {
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
  }

  WebpFrame frame_;
  PixelSize size_;
  const PictureFile& file_;
  std::vector<Pixel> pixels_;
  // Those from the top that are decoded.
  int rows_ = 0;
};

bool WebpRows::GoTo(int top) {
  pixels_.resize(Count(size_));
  const auto width = static_cast<std::size_t>(size_.width);
  const std::size_t corner = static_cast<std::size_t>(frame_.place.top) * width + frame_.place.left;
  WebPDecoderConfig config;
  if (WebPInitDecoderConfig(&config) == 0) return false;
  config.options.use_threads = 1;
  config.options.use_scaling = frame_.CoversCanvas() && size_ != frame_.canvas ? 1 : 0;
  config.options.scaled_width = size_.width;
  config.options.scaled_height = size_.height;
  config.output.colorspace = kBlueFirst ? MODE_bgrA : MODE_Argb;
  config.output.is_external_memory = 1;
  config.output.u.RGBA.rgba = reinterpret_cast<std::uint8_t*>(pixels_.data() + corner);
  config.output.u.RGBA.stride = static_cast<int>(width * sizeof(Pixel));
  config.output.u.RGBA.size = (pixels_.size() - corner) * sizeof(Pixel);
  const std::unique_ptr<WebPIDecoder, DeleteDecoder> decoder(WebPIDecode(nullptr, 0, &config));
  if (!decoder) return false;
  VP8StatusCode status = VP8_STATUS_SUSPENDED;
  int decoded = 0;
  for (std::size_t end = 0; status == VP8_STATUS_SUSPENDED && end < frame_.bytes.size() && !file_.IsOverdue();) {
    end = std::min(end + kWebpPiece, frame_.bytes.size());
    status = WebPIUpdate(decoder.get(), frame_.bytes.data(), end);
    if (status == VP8_STATUS_SUSPENDED || status == VP8_STATUS_OK) {
      WebPIDecGetRGB(decoder.get(), &decoded, nullptr, nullptr, nullptr);
    }
  }
  rows_ = status == VP8_STATUS_OK ? size_.height : frame_.place.top + decoded;
  return decoded > 0 && rows_ > top;
}

// A photo or an animation, of which the first frame is shown.
class WebpPicture : public FilePicture {
 public:
  explicit WebpPicture(std::unique_ptr<PictureFile> file) : FilePicture(std::move(file)) {
    const auto bytes = File().All();
    const WebPData data{bytes.data(), bytes.size()};
    WebPDemuxState state = WEBP_DEMUX_PARSE_ERROR;
    const std::unique_ptr<WebPDemuxer, DeleteDemuxer> demuxer(WebPDemuxPartial(&data, &state));
    WebPIterator frame{};
    if (!demuxer || WebPDemuxGetFrame(demuxer.get(), 1, &frame) == 0) FailLoad("Damaged picture");
    frame_ = {.canvas = {static_cast<int>(WebPDemuxGetI(demuxer.get(), WEBP_FF_CANVAS_WIDTH)),
                         static_cast<int>(WebPDemuxGetI(demuxer.get(), WEBP_FF_CANVAS_HEIGHT))},
              .place = {frame.x_offset, frame.y_offset, frame.width, frame.height},
              .bytes = {frame.fragment.bytes, frame.fragment.size},
              .has_alpha = frame.has_alpha != 0};
    WebPDemuxReleaseIterator(&frame);
    const PixelRect canvas{0, 0, frame_.canvas.width, frame_.canvas.height};
    if (canvas.IsEmpty() || frame_.place.IsEmpty() || Intersect(canvas, frame_.place) != frame_.place) {
      FailLoad("Damaged picture");
    }
    CameraTags tags;
    ReadChunk(*demuxer, "EXIF", [&](std::span<const std::uint8_t> exif) { tags = ExifCameraTags(exif); });
    ReadChunk(*demuxer, "ICCP", [&](std::span<const std::uint8_t> profile) { UseProfile(profile); });
    Describe(frame_.canvas, tags.orientation, tags.date_taken);
  }

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize stored_box) override {
    return std::make_unique<WebpRows>(frame_, DecodedSize(frame_, stored_box), File());
  }

 private:
  template <typename Use>
  static void ReadChunk(const WebPDemuxer& demuxer, const char* type, const Use& use) {
    WebPChunkIterator chunk{};
    if (WebPDemuxGetChunk(&demuxer, type, 1, &chunk) != 0) use({chunk.chunk.bytes, chunk.chunk.size});
    WebPDemuxReleaseChunkIterator(&chunk);
  }

  WebpFrame frame_;
};

}  // namespace

bool IsWebp(PictureFile& file) {
  std::array<std::uint8_t, 4> kind{};
  return file.BeginsWith("RIFF") && file.Copy(8, kind) && std::memcmp(kind.data(), "WEBP", kind.size()) == 0;
}

OpenedPicture OpenWebp(std::unique_ptr<PictureFile> file) { return std::make_shared<WebpPicture>(std::move(file)); }

}  // namespace quorvale
