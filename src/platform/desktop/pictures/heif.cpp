#include <libheif/heif.h>

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/desktop/pictures/colour_profile.h"
#include "platform/desktop/pictures/formats.h"
#include "platform/pictures/embedded_profile.h"

namespace quorvale {
namespace {

// The library checks a size against the square of this: `kPictureMemoryLimit` in pixels.
constexpr int kMostOnASide = 11585;
// Exif with a large thumbnail fits.
constexpr std::size_t kLongestExif = std::size_t{1} << 20U;
// The place of the Exif data in its block comes before them.
constexpr std::size_t kExifOffset = 4;

template <typename Type, auto kRelease>
struct Releaser {
  void operator()(Type* object) const { kRelease(object); }
};
using Context = std::unique_ptr<heif_context, Releaser<heif_context, heif_context_free>>;
using Handle = std::unique_ptr<heif_image_handle, Releaser<const heif_image_handle, heif_image_handle_release>>;
using Image = std::unique_ptr<heif_image, Releaser<const heif_image, heif_image_release>>;
using DecodingOptions =
    std::unique_ptr<heif_decoding_options, Releaser<heif_decoding_options, heif_decoding_options_free>>;

bool IsGood(const heif_error& error) { return error.code == heif_error_Ok; }

// The picture of a file that is meant to be shown, turned and cut as the file says. The library has no way to give part
// of it.
class HeifRows : public SequentialRows {
 public:
  HeifRows(const heif_image_handle* handle, PixelSize size)
      : SequentialRows(size),
        handle_(handle),
        size_(size),
        has_alpha_(heif_image_handle_has_alpha_channel(handle) != 0),
        is_premultiplied_(heif_image_handle_is_premultiplied_alpha(handle) != 0) {}

  bool IsOpaque() const override { return !has_alpha_; }
  std::size_t Memory() const override {
    return static_cast<std::size_t>(size_.width) * static_cast<std::size_t>(size_.height) * Channels();
  }

 protected:
  bool GoTo(int /*top*/) override {
    const DecodingOptions options(heif_decoding_options_alloc());
    if (!options) return false;
    options->convert_hdr_to_8bit = 1;
    heif_image* decoded = nullptr;
    const heif_error error =
        heif_decode_image(handle_, &decoded, heif_colorspace_RGB,
                          has_alpha_ ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, options.get());
    image_.reset(decoded);
    if (!IsGood(error)) return false;
    pixels_ = heif_image_get_plane_readonly(image_.get(), heif_channel_interleaved, &stride_);
    return pixels_ != nullptr && heif_image_get_width(image_.get(), heif_channel_interleaved) >= size_.width &&
           heif_image_get_height(image_.get(), heif_channel_interleaved) >= size_.height;
  }

  bool Decode(int y, std::span<Pixel> row) override {
    const std::uint8_t* from =
        pixels_ + std::ptrdiff_t{y} * stride_ + std::ptrdiff_t{Left()} * static_cast<std::ptrdiff_t>(Channels());
    const auto colour = [&] { return Pixel{from[0]} << 16U | Pixel{from[1]} << 8U | from[2]; };
    if (!has_alpha_) {
      for (Pixel& pixel : row) {
        pixel = 0xFF000000U | colour();
        from += 3;
      }
      return true;
    }
    for (Pixel& pixel : row) {
      pixel = is_premultiplied_ ? Pixel{from[3]} << 24U | colour() : Premultiplied(colour(), from[3]);
      from += 4;
    }
    return true;
  }

 private:
  std::size_t Channels() const { return has_alpha_ ? 4 : 3; }

  const heif_image_handle* handle_;
  PixelSize size_;
  bool has_alpha_;
  bool is_premultiplied_;
  Image image_;
  const std::uint8_t* pixels_ = nullptr;
  int stride_ = 0;
};

// HEIC and AVIF: one container, in which pictures of either compression stand.
class HeifPicture : public FilePicture {
 public:
  explicit HeifPicture(std::unique_ptr<PictureFile> file)
      : FilePicture(std::move(file)), context_(heif_context_alloc()) {
    if (!context_) FailLoad("Picture too large");
    heif_context_set_maximum_image_size_limit(context_.get(), kMostOnASide);
    const auto bytes = File().All();
    heif_image_handle* primary = nullptr;
    if (!IsGood(heif_context_read_from_memory_without_copy(context_.get(), bytes.data(), bytes.size(), nullptr)) ||
        !IsGood(heif_context_get_primary_image_handle(context_.get(), &primary))) {
      FailLoad("Damaged picture");
    }
    handle_.reset(primary);
    size_ = {heif_image_handle_get_width(primary), heif_image_handle_get_height(primary)};
    if (size_.width <= 0 || size_.height <= 0) FailLoad("Damaged picture");
    // The library turns the picture. The number in the Exif data says the same, or is out of date.
    Describe(size_, {}, ReadDateTaken());
    ReadColours();
  }

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize /*stored_box*/) override {
    return std::make_unique<HeifRows>(handle_.get(), size_);
  }

 private:
  std::string ReadDateTaken() const {
    heif_item_id item = 0;
    if (heif_image_handle_get_list_of_metadata_block_IDs(handle_.get(), "Exif", &item, 1) != 1) return {};
    const std::size_t size = heif_image_handle_get_metadata_size(handle_.get(), item);
    if (size <= kExifOffset || size > kLongestExif) return {};
    std::vector<std::uint8_t> block(size);
    if (!IsGood(heif_image_handle_get_metadata(handle_.get(), item, block.data()))) return {};
    const std::uint32_t offset = std::uint32_t{block[0]} << 24U | block[1] << 16U | block[2] << 8U | block[3];
    if (offset > size - kExifOffset) return {};
    return ExifCameraTags(std::span(block).subspan(kExifOffset + offset)).date_taken;
  }

  void ReadColours() {
    const std::size_t size = heif_image_handle_get_raw_color_profile_size(handle_.get());
    if (size > 0 && size <= kLongestProfile) {
      std::vector<std::uint8_t> profile(size);
      if (IsGood(heif_image_handle_get_raw_color_profile(handle_.get(), profile.data()))) UseProfile(profile);
      return;
    }
    heif_color_profile_nclx* numbers = nullptr;
    if (!IsGood(heif_image_handle_get_nclx_color_profile(handle_.get(), &numbers)) || numbers == nullptr) return;
    const bool is_p3 = numbers->color_primaries == heif_color_primaries_SMPTE_EG_432_1;
    heif_nclx_color_profile_free(numbers);
    if (is_p3) UseProfile(ColourProfile::DisplayP3());
  }

  Context context_;
  Handle handle_;
  PixelSize size_;
};

}  // namespace

bool IsHeif(PictureFile& file) {
  std::array<std::uint8_t, 12> head{};
  return file.Copy(0, head) && heif_check_filetype(head.data(), head.size()) == heif_filetype_yes_supported;
}

OpenedPicture OpenHeif(std::unique_ptr<PictureFile> file) { return std::make_shared<HeifPicture>(std::move(file)); }

}  // namespace quorvale
