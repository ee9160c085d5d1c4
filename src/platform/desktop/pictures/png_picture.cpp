#include "platform/desktop/pictures/png_picture.h"

#include <QIODevice>
#include <QImageReader>
#include <algorithm>
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
    std::copy_n(bytes.begin(), count, to);
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

  std::size_t Memory() const override { return static_cast<std::size_t>(image_.sizeInBytes()); }

  bool Start(int left, int /*right*/, int /*top*/) override {
    left_ = left;
    return true;
  }

  const Pixel* Row(int y) override { return reinterpret_cast<const Pixel*>(image_.constScanLine(y)) + left_; }

 private:
  QImage image_;
  int left_ = 0;
};

[[noreturn]] void Fail(const char* what) { throw Failure(FailureNumber::kBadPicture, what, "LoadPicture"); }

// The most that the format packs into a byte.
constexpr std::size_t kPixelsToByte = 8300;

std::size_t Bytes(QSize size, int depth) {
  return static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()) *
         static_cast<std::size_t>(depth) / 8;
}

// The image to decode into, so that what a damaged file leaves out is not what memory happened to hold.
// A size that the bytes of the file can't fill is none.
QImage Blank(const QImageReader& reader, std::size_t file_size) {
  const QSize size = reader.size();
  const QImage::Format format = reader.imageFormat();
  if (!size.isValid() || format == QImage::Format_Invalid) Fail("Damaged picture");
  if (Bytes(size, 8) / kPixelsToByte > file_size) Fail("Damaged picture");
  if (Bytes(size, 32) > kPictureMemoryLimit) Fail("Picture too large");
  QImage image(size, format);
  if (image.isNull()) throw std::bad_alloc();
  image.fill(image.hasAlphaChannel() ? Qt::transparent : Qt::black);
  return image;
}

}  // namespace

bool PngPicture::Recognizes(PictureFile& file) { return file.BeginsWith("\x89PNG"); }

PngPicture::PngPicture(std::unique_ptr<PictureFile> file) : FilePicture(std::move(file)), image_(Decode()) {
  Describe({image_.width(), image_.height()}, {});
}

std::unique_ptr<RowSource> PngPicture::OpenRows(PixelSize /*stored_box*/) {
  return std::make_unique<ImageRows>(image_.isNull() ? Decode() : std::exchange(image_, {}));
}

QImage PngPicture::Decode() {
  FileDevice device(File());
  // Qt isn't left to look for a format itself: its plugins, of which any program may bring more, would
  // all get to see what a stranger's file holds.
  QImageReader reader(&device, "png");
  reader.setAutoDetectImageFormat(false);
  QImage image = Blank(reader, File().Size());
  if (!reader.read(&image) || image.isNull()) Fail("Damaged picture");
  const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  // Another depth takes a second image for a moment.
  if (image.depth() != 32 && Bytes(image.size(), image.depth() + 32) > kPictureMemoryLimit) Fail("Picture too large");
  image.convertTo(format);
  if (image.isNull()) throw std::bad_alloc();
  return image;
}

}  // namespace quorvale
