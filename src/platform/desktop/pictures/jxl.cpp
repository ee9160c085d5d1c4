#include <jxl/decode.h>
#include <jxl/thread_parallel_runner_cxx.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/desktop/pictures/formats.h"
#include "platform/desktop/pictures/iso_boxes.h"
#include "platform/desktop/system/loaded_library.h"
#include "platform/pictures/embedded_profile.h"

namespace quorvale {
namespace {

// Depth, masks and the like, which are decoded but not shown. Each takes as much memory as a colour.
constexpr std::uint32_t kMostFurtherChannels = 4;

constexpr JxlPixelFormat kFormat{4, JXL_TYPE_UINT8, JXL_NATIVE_ENDIAN, 0};
constexpr std::size_t kChannels = 4;

struct JxlLibrary : LoadedLibrary {
  JxlLibrary() : LoadedLibrary(QUORVALE_JXL_LIBRARY) {}

  QUORVALE_IMPORT(JxlDecoderCloseInput);
  QUORVALE_IMPORT(JxlDecoderCreate);
  QUORVALE_IMPORT(JxlDecoderDestroy);
  QUORVALE_IMPORT(JxlDecoderFlushImage);
  QUORVALE_IMPORT(JxlDecoderGetBasicInfo);
  QUORVALE_IMPORT(JxlDecoderGetColorAsICCProfile);
  QUORVALE_IMPORT(JxlDecoderGetICCProfileSize);
  QUORVALE_IMPORT(JxlDecoderProcessInput);
  QUORVALE_IMPORT(JxlDecoderSetImageOutBuffer);
  QUORVALE_IMPORT(JxlDecoderSetInput);
  QUORVALE_IMPORT(JxlDecoderSetKeepOrientation);
  QUORVALE_IMPORT(JxlDecoderSetParallelRunner);
  QUORVALE_IMPORT(JxlDecoderSetPreferredColorProfile);
  QUORVALE_IMPORT(JxlDecoderSubscribeEvents);
};

// Fails with kBadPicture if the library is missing.
const JxlLibrary& Jxl() {
  static const JxlLibrary library;
  if (!library.IsWhole()) FailLoad("The library for JPEG XL is missing");
  return library;
}

// Up to 0.8 the library wants a format here too, which it does not use.
template <typename Function, typename... Arguments>
JxlDecoderStatus AskForProfile(Function function, const JxlDecoder* decoder, Arguments... arguments) {
  constexpr auto kOfPixels = JXL_COLOR_PROFILE_TARGET_DATA;
  if constexpr (std::is_invocable_v<Function, const JxlDecoder*, JxlColorProfileTarget, Arguments...>) {
    return function(decoder, kOfPixels, arguments...);
  } else {
    return function(decoder, &kFormat, kOfPixels, arguments...);
  }
}

struct JxlRelease {
  void operator()(JxlDecoder* decoder) const { Jxl().JxlDecoderDestroy(decoder); }
};

// Decodes the first frame of a JPEG XL file.
class JxlReader {
 public:
  explicit JxlReader(PictureFile& file)
      : file_(file),
        bytes_(file.All()),
        runner_(JxlThreadParallelRunnerMake(nullptr, JxlThreadParallelRunnerDefaultNumWorkerThreads())),
        decoder_(Jxl().JxlDecoderCreate(nullptr)) {}

  bool ReadHeader();

  // After `ReadHeader`.
  PixelSize Size() const { return {static_cast<int>(info_.xsize), static_cast<int>(info_.ysize)}; }
  bool IsGrey() const { return info_.num_color_channels == 1; }
  bool HasAlpha() const { return info_.alpha_bits > 0; }
  bool IsPremultiplied() const { return info_.alpha_premultiplied != JXL_FALSE; }
  Orientation StoredOrientation() const { return Orientation::FromExif(info_.orientation); }
  const std::vector<std::uint8_t>& Profile() const { return profile_; }
  std::string DateTaken() const;

  // Sets `pixels` to red, green, blue and alpha. If damage ends the file, the rest is what the library makes of it.
  // False also if it takes too long.
  bool Read(std::vector<std::uint8_t>& pixels);

 private:
  // The next event.
  JxlDecoderStatus Proceed() { return Jxl().JxlDecoderProcessInput(decoder_.get()); }
  void ReadProfile();
  // A callback of the library.
  static JxlParallelRetCode OnRun(void* reader, void* decoder, JxlParallelRunInit begin, JxlParallelRunFunction decode,
                                  std::uint32_t first, std::uint32_t end);

  PictureFile& file_;
  std::span<const std::uint8_t> bytes_;
  JxlThreadParallelRunnerPtr runner_;
  std::unique_ptr<JxlDecoder, JxlRelease> decoder_;
  JxlBasicInfo info_{};
  std::vector<std::uint8_t> profile_;
};

// Decodes the parts of a picture on threads, and fails when the time is over: given the file in pieces to look at the
// clock between them, the threads would wait for each other at the end of each.
JxlParallelRetCode JxlReader::OnRun(void* reader, void* decoder, JxlParallelRunInit begin,
                                    JxlParallelRunFunction decode, std::uint32_t first, std::uint32_t end) {
  struct Run {
    const PictureFile& file;
    void* decoder;
    JxlParallelRunInit begin;
    JxlParallelRunFunction decode;
  };
  auto& self = *static_cast<JxlReader*>(reader);
  Run run{self.file_, decoder, begin, decode};
  const JxlParallelRetCode result = JxlThreadParallelRunner(
      self.runner_.get(), &run,
      [](void* of, std::size_t threads) {
        const Run& its = *static_cast<Run*>(of);
        return its.begin(its.decoder, threads);
      },
      [](void* of, std::uint32_t part, std::size_t thread) {
        const Run& its = *static_cast<Run*>(of);
        if (!its.file.IsOverdue()) its.decode(its.decoder, part, thread);
      },
      first, end);
  return self.file_.IsOverdue() ? JXL_PARALLEL_RET_RUNNER_ERROR : result;
}

bool JxlReader::ReadHeader() {
  JxlDecoder* const decoder = decoder_.get();
  if (decoder == nullptr || runner_ == nullptr) return false;
  constexpr int kEvents = JXL_DEC_BASIC_INFO | JXL_DEC_COLOR_ENCODING | JXL_DEC_FULL_IMAGE;
  if (Jxl().JxlDecoderSubscribeEvents(decoder, kEvents) != JXL_DEC_SUCCESS ||
      Jxl().JxlDecoderSetKeepOrientation(decoder, JXL_TRUE) != JXL_DEC_SUCCESS ||
      Jxl().JxlDecoderSetParallelRunner(decoder, OnRun, this) != JXL_DEC_SUCCESS ||
      Jxl().JxlDecoderSetInput(decoder, bytes_.data(), bytes_.size()) != JXL_DEC_SUCCESS) {
    return false;
  }
  Jxl().JxlDecoderCloseInput(decoder);
  if (Proceed() != JXL_DEC_BASIC_INFO || Jxl().JxlDecoderGetBasicInfo(decoder, &info_) != JXL_DEC_SUCCESS) {
    return false;
  }
  constexpr std::uint32_t kMost = kPictureMemoryLimit / kChannels;
  if (info_.xsize == 0 || info_.ysize == 0 || info_.xsize > kMost / info_.ysize) return false;
  if (info_.num_extra_channels > kMostFurtherChannels || Proceed() != JXL_DEC_COLOR_ENCODING) return false;
  ReadProfile();
  return true;
}

// Lossy files have no colours of their own: the decoder makes those of the screen.
void JxlReader::ReadProfile() {
  JxlColorEncoding screen{};
  screen.color_space = IsGrey() ? JXL_COLOR_SPACE_GRAY : JXL_COLOR_SPACE_RGB;
  screen.white_point = JXL_WHITE_POINT_D65;
  screen.primaries = JXL_PRIMARIES_SRGB;
  screen.transfer_function = JXL_TRANSFER_FUNCTION_SRGB;
  Jxl().JxlDecoderSetPreferredColorProfile(decoder_.get(), &screen);
  std::size_t size = 0;
  if (AskForProfile(Jxl().JxlDecoderGetICCProfileSize, decoder_.get(), &size) != JXL_DEC_SUCCESS) return;
  if (size > kLongestProfile) return;
  profile_.resize(size);
  if (AskForProfile(Jxl().JxlDecoderGetColorAsICCProfile, decoder_.get(), profile_.data(), size) != JXL_DEC_SUCCESS) {
    profile_.clear();
  }
}

// From the boxes of the file, before the picture or after it. A file without boxes has no camera data.
std::string JxlReader::DateTaken() const { return BoxedCameraTags(FindBox(bytes_, BoxType("Exif"))).date_taken; }

bool JxlReader::Read(std::vector<std::uint8_t>& pixels) {
  JxlDecoder* const decoder = decoder_.get();
  if (Proceed() != JXL_DEC_NEED_IMAGE_OUT_BUFFER) return false;
  pixels.resize(kChannels * info_.xsize * info_.ysize);
  if (Jxl().JxlDecoderSetImageOutBuffer(decoder, &kFormat, pixels.data(), pixels.size()) != JXL_DEC_SUCCESS)
    return false;
  if (Proceed() == JXL_DEC_FULL_IMAGE) return true;
  return !file_.IsOverdue() && Jxl().JxlDecoderFlushImage(decoder) == JXL_DEC_SUCCESS;
}

class JxlRows : public SequentialRows {
 public:
  explicit JxlRows(std::unique_ptr<JxlReader> reader) : SequentialRows(reader->Size()), reader_(std::move(reader)) {}

  bool IsOpaque() const override { return !reader_->HasAlpha(); }
  std::size_t Memory() const override {
    return kChannels * static_cast<std::size_t>(reader_->Size().width) *
           static_cast<std::size_t>(reader_->Size().height);
  }

 protected:
  bool GoTo(int /*top*/) override { return reader_->Read(pixels_); }

  bool Decode(int y, std::span<Pixel> row) override {
    const std::size_t first = static_cast<std::size_t>(y) * static_cast<std::size_t>(reader_->Size().width) +
                              static_cast<std::size_t>(Left());
    const std::uint8_t* from = &pixels_[first * kChannels];
    const bool is_ready = !reader_->HasAlpha() || reader_->IsPremultiplied();
    const Pixel least_alpha = reader_->HasAlpha() ? 0 : 0xFFU;
    for (Pixel& pixel : row) {
      const Pixel colour = Pixel{from[0]} << 16U | Pixel{from[1]} << 8U | from[2];
      pixel = is_ready ? (from[3] | least_alpha) << 24U | colour : Premultiplied(colour, from[3]);
      from += kChannels;
    }
    return true;
  }

 private:
  std::unique_ptr<JxlReader> reader_;
  std::vector<std::uint8_t> pixels_;
};

class JxlPicture : public DecodedPicture<JxlReader> {
 public:
  explicit JxlPicture(std::unique_ptr<PictureFile> file) : DecodedPicture(std::move(file)) {
    Describe(Header().Size(), Header().StoredOrientation(), Header().DateTaken());
    UseProfile(Header().Profile(), Header().IsGrey());
  }

 protected:
  std::unique_ptr<RowSource> OpenRows(PixelSize /*stored_box*/) override {
    return std::make_unique<JxlRows>(TakeDecoder());
  }
};

}  // namespace

// A codestream, or a container of boxes.
bool IsJxl(PictureFile& file) {
  using namespace std::string_view_literals;
  return file.BeginsWith("\xFF\x0A"sv) || file.BeginsWith("\0\0\0\x0CJXL "sv);
}

OpenedPicture OpenJxl(std::unique_ptr<PictureFile> file) { return std::make_shared<JxlPicture>(std::move(file)); }

}  // namespace quorvale
