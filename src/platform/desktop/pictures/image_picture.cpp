#include "platform/desktop/pictures/image_picture.h"

#include <QIODevice>
#include <QImageReader>
#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "base/failure.h"

namespace quorvale {
namespace {

class FileDevice : public QIODevice {
 public:
  explicit FileDevice(PictureFile& file) : file_(file) { open(QIODevice::ReadOnly | QIODevice::Unbuffered); }

  bool isSequential() const override { return false; }
  qint64 size() const override { return static_cast<qint64>(file_.Size()); }

 protected:
  qint64 readData(char* to, qint64 most) override {
    const auto bytes = file_.From(static_cast<std::size_t>(pos()));
    const auto count = std::min(bytes.size(), static_cast<std::size_t>(most));
    if (count > 0) std::memcpy(to, bytes.data(), count);
    return static_cast<qint64>(count);
  }
  qint64 writeData(const char* /*from*/, qint64 /*count*/) override { return -1; }

 private:
  PictureFile& file_;
};

class ImageRows : public RowSource {
 public:
  explicit ImageRows(QImage image) : image_(std::move(image)) {}

  Side Across() const override { return {image_.width(), static_cast<double>(image_.width())}; }
  Side Down() const override { return {image_.height(), static_cast<double>(image_.height())}; }
  bool IsOpaque() const override { return !image_.hasAlphaChannel(); }

  bool Start(int left, int /*right*/, int /*top*/) override {
    left_ = left;
    return true;
  }

  const Pixel* Row(int y) override { return reinterpret_cast<const Pixel*>(image_.constScanLine(y)) + left_; }

 private:
  QImage image_;
  int left_ = 0;
};

}  // namespace

ImagePicture::ImagePicture(std::unique_ptr<PictureFile> file) : file_(std::move(file)), image_(Decode()) {
  Describe({image_.width(), image_.height()}, {});
}

std::unique_ptr<RowSource> ImagePicture::Open(PixelSize /*stored_box*/) {
  return std::make_unique<ImageRows>(image_.isNull() ? Decode() : std::exchange(image_, {}));
}

QImage ImagePicture::Decode() {
  FileDevice device(*file_);
  QImageReader reader(&device);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  QImage image = reader.read();
  if (image.isNull()) throw Failure(FailureNumber::kBadPicture, "Not a picture, or damaged", "LoadPicture");
  const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  if (image.depth() != 32) {
    // Both are there for a moment.
    const auto pixels = static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height());
    const std::size_t bytes = static_cast<std::size_t>(image.sizeInBytes()) + pixels * sizeof(Pixel);
    if (bytes > kPictureMemoryLimit) throw Failure(FailureNumber::kBadPicture, "Picture too large", "LoadPicture");
  }
  image.convertTo(format);
  if (image.isNull()) throw std::bad_alloc();
  return image;
}

}  // namespace quorvale
