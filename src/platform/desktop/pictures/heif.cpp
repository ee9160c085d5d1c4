#include <libheif/heif.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/desktop/pictures/colour_profile.h"
#include "platform/desktop/pictures/formats.h"
#include "platform/desktop/pictures/iso_boxes.h"
#include "platform/desktop/system/loaded_library.h"
#include "platform/pictures/embedded_profile.h"

namespace quorvale {
namespace {

// The library checks a size against the square of this: `kPictureMemoryLimit` in pixels.
constexpr int kMostOnASide = 11585;
// Exif with a large thumbnail fits.
constexpr std::size_t kLongestExif = std::size_t{1} << 20U;

struct HeifLibrary : LoadedLibrary {
  HeifLibrary() : LoadedLibrary(QUORVALE_HEIF_LIBRARY) {}

  QUORVALE_IMPORT(heif_context_alloc);
  QUORVALE_IMPORT(heif_context_free);
  QUORVALE_IMPORT(heif_context_get_primary_image_handle);
  QUORVALE_IMPORT(heif_context_read_from_memory_without_copy);
  QUORVALE_IMPORT(heif_context_set_maximum_image_size_limit);
  QUORVALE_IMPORT(heif_decode_image);
  QUORVALE_IMPORT(heif_decoding_options_alloc);
  QUORVALE_IMPORT(heif_decoding_options_free);
  QUORVALE_IMPORT(heif_image_get_bits_per_pixel_range);
  QUORVALE_IMPORT(heif_image_get_height);
  QUORVALE_IMPORT(heif_image_get_plane_readonly);
  QUORVALE_IMPORT(heif_image_get_width);
  QUORVALE_IMPORT(heif_image_handle_get_height);
  QUORVALE_IMPORT(heif_image_handle_get_ispe_height);
  QUORVALE_IMPORT(heif_image_handle_get_ispe_width);
  QUORVALE_IMPORT(heif_image_handle_get_list_of_metadata_block_IDs);
  QUORVALE_IMPORT(heif_image_handle_get_luma_bits_per_pixel);
  QUORVALE_IMPORT(heif_image_handle_get_metadata);
  QUORVALE_IMPORT(heif_image_handle_get_metadata_size);
  QUORVALE_IMPORT(heif_image_handle_get_nclx_color_profile);
  QUORVALE_IMPORT(heif_image_handle_get_raw_color_profile);
  QUORVALE_IMPORT(heif_image_handle_get_raw_color_profile_size);
  QUORVALE_IMPORT(heif_image_handle_get_width);
  QUORVALE_IMPORT(heif_image_handle_has_alpha_channel);
  QUORVALE_IMPORT(heif_image_handle_is_premultiplied_alpha);
  QUORVALE_IMPORT(heif_image_handle_release);
  QUORVALE_IMPORT(heif_image_release);
  QUORVALE_IMPORT(heif_nclx_color_profile_free);
};

// Fails with kBadPicture if the library is missing.
const HeifLibrary& Heif() {
  static const HeifLibrary library;
  if (!library.IsWhole()) FailLoad("The library for HEIC and AVIF is missing");
  return library;
}

template <typename Type, auto kRelease>
struct Releaser {
  void operator()(Type* object) const { (Heif().*kRelease)(object); }
};
using Context = std::unique_ptr<heif_context, Releaser<heif_context, &HeifLibrary::heif_context_free>>;
using Handle = std::unique_ptr<heif_image_handle, Releaser<heif_image_handle, &HeifLibrary::heif_image_handle_release>>;
using Options =
    std::unique_ptr<heif_decoding_options, Releaser<heif_decoding_options, &HeifLibrary::heif_decoding_options_free>>;
using Image = std::unique_ptr<heif_image, Releaser<heif_image, &HeifLibrary::heif_image_release>>;

bool IsGood(const heif_error& error) { return error.code == heif_error_Ok; }

// One channel of a decoded picture.
class HeifPlane {
 public:
  HeifPlane() = default;
  HeifPlane(const heif_image* image, heif_channel channel)
      : bytes_(Heif().heif_image_get_plane_readonly(image, channel, &stride_)),
        size_{Heif().heif_image_get_width(image, channel), Heif().heif_image_get_height(image, channel)},
        depth_(Heif().heif_image_get_bits_per_pixel_range(image, channel)) {}

  bool Holds(PixelSize size) const {
    return bytes_ != nullptr && size_.width >= size.width && size_.height >= size.height && depth_ >= 8 && depth_ <= 16;
  }

  // Adds its eight highest bits to pixels of a row, from the column `left` on.
  void AddTo(std::span<Pixel> row, int left, int y, unsigned shift) const {
    const std::uint8_t* const start = bytes_ + std::ptrdiff_t{y} * stride_;
    if (depth_ == 8) {
      Add(start + left, row, 0, shift);
    } else {
      Add(reinterpret_cast<const std::uint16_t*>(start) + left, row, static_cast<unsigned>(depth_ - 8), shift);
    }
  }

 private:
  template <typename Sample>
  static void Add(const Sample* from, std::span<Pixel> row, unsigned low_bits, unsigned shift) {
    for (Pixel& pixel : row) pixel |= Pixel{*from++} >> low_bits << shift;
  }

  int stride_ = 0;
  const std::uint8_t* bytes_ = nullptr;
  PixelSize size_;
  int depth_ = 0;
};

// The picture of a file that is meant to be shown. The library has no way to give part of it. Inside it is always red,
// green and blue in planes; asking for anything else, or for a picture that is turned, makes a copy beside them.
class HeifRows : public SequentialRows {
 public:
  HeifRows(const heif_image_handle* handle, PixelSize size, bool as_stored)
      : SequentialRows(size),
        handle_(handle),
        size_(size),
        as_stored_(as_stored),
        has_alpha_(Heif().heif_image_handle_has_alpha_channel(handle) != 0),
        is_premultiplied_(Heif().heif_image_handle_is_premultiplied_alpha(handle) != 0) {}

  bool IsOpaque() const override { return !has_alpha_; }
  std::size_t Memory() const override {
    const std::size_t sample = Heif().heif_image_handle_get_luma_bits_per_pixel(handle_) > 8 ? 2 : 1;
    return static_cast<std::size_t>(size_.width) * static_cast<std::size_t>(size_.height) * Channels() * sample;
  }

 protected:
  bool GoTo(int /*top*/) override {
    const Options options(Heif().heif_decoding_options_alloc());
    if (!options) return false;
    options->ignore_transformations = as_stored_ ? 1 : 0;
    heif_image* decoded = nullptr;
    const heif_error error =
        Heif().heif_decode_image(handle_, &decoded, heif_colorspace_RGB, heif_chroma_444, options.get());
    image_.reset(decoded);
    if (!IsGood(error)) return false;
    constexpr heif_channel kFromLowByte[] = {heif_channel_B, heif_channel_G, heif_channel_R, heif_channel_Alpha};
    for (std::size_t i = 0; i < Channels(); ++i) {
      planes_[i] = HeifPlane(image_.get(), kFromLowByte[i]);
      if (!planes_[i].Holds(size_)) return false;
    }
    return true;
  }

  bool Decode(int y, std::span<Pixel> row) override {
    std::ranges::fill(row, has_alpha_ ? 0 : 0xFF000000U);
    for (std::size_t i = 0; i < Channels(); ++i) planes_[i].AddTo(row, Left(), y, static_cast<unsigned>(8 * i));
    if (has_alpha_ && !is_premultiplied_) {
      for (Pixel& pixel : row) pixel = Premultiplied(pixel, pixel >> 24U);
    }
    return true;
  }

 private:
  std::size_t Channels() const { return has_alpha_ ? 4 : 3; }

  const heif_image_handle* handle_;
  PixelSize size_;
  bool as_stored_;
  bool has_alpha_;
  bool is_premultiplied_;
  Image image_;
  // From the low byte of a pixel up.
  std::array<HeifPlane, 4> planes_;
};

// HEIC and AVIF: one container, in which pictures of either compression stand.
class HeifPicture : public FilePicture {
 public:
  explicit HeifPicture(std::unique_ptr<PictureFile> file)
      : FilePicture(std::move(file)), context_(Heif().heif_context_alloc()) {
    if (!context_) FailLoad("Picture too large");
    Heif().heif_context_set_maximum_image_size_limit(context_.get(), kMostOnASide);
    const auto bytes = File().All();
    // The library has a thread for each level, and does not see a circle.
    if (NestsTooDeep(bytes)) FailLoad("Damaged picture");
    heif_image_handle* primary = nullptr;
    if (!IsGood(
            Heif().heif_context_read_from_memory_without_copy(context_.get(), bytes.data(), bytes.size(), nullptr)) ||
        !IsGood(Heif().heif_context_get_primary_image_handle(context_.get(), &primary))) {
      FailLoad("Damaged picture");
    }
    handle_.reset(primary);
    size_ = {Heif().heif_image_handle_get_width(primary), Heif().heif_image_handle_get_height(primary)};
    // The number in the Exif data says the same as the file, or is out of date.
    Orientation orientation;
    const PixelSize stored{Heif().heif_image_handle_get_ispe_width(primary),
                           Heif().heif_image_handle_get_ispe_height(primary)};
    const auto rotation = HeifRotation(bytes);
    if (rotation && rotation->Turn(stored) == size_ && Heif().heif_image_handle_has_alpha_channel(primary) == 0) {
      as_stored_ = true;
      orientation = *rotation;
      size_ = stored;
    }
    if (size_.width <= 0 || size_.height <= 0) FailLoad("Damaged picture");
    Describe(size_, orientation, ReadDateTaken());
    ReadColours();
  }

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize /*stored_box*/) override {
    return std::make_unique<HeifRows>(handle_.get(), size_, as_stored_);
  }

 private:
  std::string ReadDateTaken() const {
    heif_item_id item = 0;
    if (Heif().heif_image_handle_get_list_of_metadata_block_IDs(handle_.get(), "Exif", &item, 1) != 1) return {};
    const std::size_t size = Heif().heif_image_handle_get_metadata_size(handle_.get(), item);
    if (size > kLongestExif) return {};
    std::vector<std::uint8_t> block(size);
    if (!IsGood(Heif().heif_image_handle_get_metadata(handle_.get(), item, block.data()))) return {};
    return BoxedCameraTags(block).date_taken;
  }

  void ReadColours() {
    const std::size_t size = Heif().heif_image_handle_get_raw_color_profile_size(handle_.get());
    if (size > 0 && size <= kLongestProfile) {
      std::vector<std::uint8_t> profile(size);
      if (IsGood(Heif().heif_image_handle_get_raw_color_profile(handle_.get(), profile.data())))
        UseProfile(profile, IsGreyHeif(File().All()));
      return;
    }
    heif_color_profile_nclx* numbers = nullptr;
    if (!IsGood(Heif().heif_image_handle_get_nclx_color_profile(handle_.get(), &numbers)) || numbers == nullptr) return;
    const int primaries = numbers->color_primaries;
    const int transfer = numbers->transfer_characteristics;
    Heif().heif_nclx_color_profile_free(numbers);
    UseProfile(ColourProfile::OfNumbers(primaries, transfer));
  }

  Context context_;
  Handle handle_;
  // As the library gives the pixels: as they are stored, or turned and cut by itself.
  PixelSize size_;
  bool as_stored_ = false;
};

}  // namespace

// A film begins in the same way. The library then finds no picture.
bool IsHeif(PictureFile& file) {
  constexpr std::array<std::uint8_t, 4> kFileType{'f', 't', 'y', 'p'};
  std::array<std::uint8_t, 4> type{};
  return file.Copy(4, type) && type == kFileType;
}

OpenedPicture OpenHeif(std::unique_ptr<PictureFile> file) { return std::make_shared<HeifPicture>(std::move(file)); }

}  // namespace quorvale
