#include "platform/desktop/pictures/jpeg_picture.h"

#include <utility>

#include "base/failure.h"
#include "platform/pictures/exif.h"

namespace quorvale {
namespace {

// The largest reduction by the decoder that leaves the picture no smaller than the box. The powers of
// two are the ones that it has fast code for.
int ChooseEighths(const JpegDecoder& decoder, PixelSize box) {
  for (const int eighths : {1, 2, 4}) {
    if (decoder.ScaledWidth(eighths) >= box.width && decoder.ScaledHeight(eighths) >= box.height) return eighths;
  }
  return 8;
}

class JpegRows : public RowSource {
 public:
  JpegRows(std::unique_ptr<JpegDecoder> decoder, PixelSize box)
      : decoder_(std::move(decoder)), eighths_(ChooseEighths(*decoder_, box)) {}

  Side Across() const override { return {decoder_->ScaledWidth(eighths_), decoder_->Width() * eighths_ / 8.0}; }
  Side Down() const override { return {decoder_->ScaledHeight(eighths_), decoder_->Height() * eighths_ / 8.0}; }
  bool IsOpaque() const override { return true; }
  std::size_t Memory() const override { return decoder_->Memory(); }

  bool Start(int left, int right, int top) override {
    next_ = top;
    return decoder_->Start(eighths_, left, right, top);
  }

  const Pixel* Row(int y) override {
    while (next_ <= y) {
      last_ = std::exchange(current_, decoder_->NextRow());
      if (current_ == nullptr) return nullptr;
      ++next_;
    }
    return y == next_ - 1 ? current_ : last_;
  }

 private:
  std::unique_ptr<JpegDecoder> decoder_;
  int eighths_;
  int next_ = 0;
  const Pixel* current_ = nullptr;
  const Pixel* last_ = nullptr;
};

}  // namespace

bool JpegPicture::Recognizes(PictureFile& file) { return file.BeginsWith("\xFF\xD8"); }

JpegPicture::JpegPicture(std::unique_ptr<PictureFile> file) : FilePicture(std::move(file)), decoder_(ReadHeader()) {
  Describe({decoder_->Width(), decoder_->Height()}, Orientation::FromExif(JpegOrientation(File().Reader())));
}

std::unique_ptr<JpegDecoder> JpegPicture::ReadHeader() {
  auto decoder = std::make_unique<JpegDecoder>(File());
  if (!decoder->ReadHeader()) throw Failure(FailureNumber::kBadPicture, "Damaged picture", "LoadPicture");
  return decoder;
}

std::unique_ptr<RowSource> JpegPicture::OpenRows(PixelSize stored_box) {
  auto decoder = decoder_ ? std::move(decoder_) : ReadHeader();
  return std::make_unique<JpegRows>(std::move(decoder), stored_box);
}

}  // namespace quorvale
