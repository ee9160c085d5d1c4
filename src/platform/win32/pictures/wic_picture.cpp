#include "platform/win32/pictures/wic_picture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>

#include "base/byte_reader.h"
#include "platform/pictures/embedded_profile.h"
#include "platform/pictures/row_source.h"
#include "platform/win32/pictures/colour_profile.h"
#include "platform/win32/pictures/decoding_time.h"

// The interface of decoders that scale while they decode. The compiler's headers lack it. Components have no public
// destructor.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
struct IWICBitmapSourceTransform : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE CopyPixels(const WICRect* rect, UINT width, UINT height, WICPixelFormatGUID* format,
                                               WICBitmapTransformOptions transform, UINT stride, UINT size,
                                               BYTE* pixels) = 0;
  // The size nearest to the wanted one that the decoder supports.
  virtual HRESULT STDMETHODCALLTYPE GetClosestSize(UINT* width, UINT* height) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetClosestPixelFormat(WICPixelFormatGUID* format) = 0;
  virtual HRESULT STDMETHODCALLTYPE DoesSupportTransform(WICBitmapTransformOptions transform, BOOL* supported) = 0;
};

__CRT_UUID_DECL(IWICBitmapSourceTransform, 0x3b16811b, 0x6a43, 0x4ec9, 0xb7, 0x13, 0x3d, 0x5a, 0x0c, 0x13, 0xb9, 0x40)

namespace quorvale {
namespace {

using WicSource = ComPointer<IWICBitmapSource>;

// Throws kBadPicture if a call has failed. Its text distinguishes a lack of memory from other failures.
void CheckPicture(HRESULT result) {
  if (SUCCEEDED(result)) return;
  const bool too_large = result == E_OUTOFMEMORY || result == WINCODEC_ERR_IMAGESIZEOUTOFRANGE;
  FailLoad(too_large ? "Picture too large" : "Not a picture, or damaged");
}

// As many rows as a decoder of photos makes at once. Damage loses no more than this.
constexpr int kBandRows = 16;

// What the system decodes: the pixels have our format. The stream reads the file in place.
struct WicDecoding {
  PictureBytes file;
  WicSource source;
};

// A band that is decoded while nobody waits for it any more owns all that it uses.
struct BandCopy {
  void Run() {
    const auto stride = static_cast<UINT>(rows.Width) * static_cast<UINT>(sizeof(Pixel));
    result = decoding->source->CopyPixels(&rows, stride, stride * static_cast<UINT>(rows.Height),
                                          reinterpret_cast<BYTE*>(pixels.data()));
  }

  std::shared_ptr<WicDecoding> decoding;
  WICRect rows{};
  std::vector<Pixel> pixels;
  HRESULT result = E_ABORT;
};

// The rows of a picture that the system decodes, in bands.
class WicRows : public RowSource {
 public:
  // Many decoders that do not `decode_by_rows` decode the whole picture for the first band.
  WicRows(std::shared_ptr<WicDecoding> decoding, Side across, Side down, bool opaque, bool decode_by_rows);

  Side Across() const override { return across_; }
  Side Down() const override { return down_; }
  bool IsOpaque() const override { return opaque_; }
  bool Start(int left, int right, int top) override;
  const Pixel* Row(int y) override;

 private:
  struct Band {
    int number = -1;
    bool is_whole = false;
    std::vector<Pixel> pixels;
  };

  void ReadBand(Band& band, int number);

  DecodingTime time_;
  std::shared_ptr<WicDecoding> decoding_;
  Side across_;
  Side down_;
  bool opaque_;
  // Whether the next band may take seconds.
  bool may_be_slow_;
  int left_ = 0;
  int width_ = 0;
  // Used in turn, so that the last row of one stays while the next is read.
  std::array<Band, 2> bands_;
};

WicRows::WicRows(std::shared_ptr<WicDecoding> decoding, Side across, Side down, bool opaque, bool decode_by_rows)
    : decoding_(std::move(decoding)), across_(across), down_(down), opaque_(opaque), may_be_slow_(!decode_by_rows) {}

bool WicRows::Start(int left, int right, int /*top*/) {
  left_ = left;
  width_ = right - left;
  const auto count = static_cast<std::size_t>(width_) * kBandRows;
  for (Band& band : bands_) band.pixels.resize(count);
  return true;
}

const Pixel* WicRows::Row(int y) {
  const int number = y / kBandRows;
  Band& band = bands_[static_cast<std::size_t>(number % 2)];
  if (band.number != number) ReadBand(band, number);
  // `Read` takes the pixels away only where the band does not become whole.
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.Move)
  return band.is_whole ? band.pixels.data() + std::ptrdiff_t{y % kBandRows} * width_ : nullptr;
}

void WicRows::ReadBand(Band& band, int number) {
  const int top = number * kBandRows;
  band.number = number;
  band.is_whole = false;
  if (!time_.IsLeft()) return;
  BandCopy copy{decoding_, {left_, top, width_, std::min(kBandRows, down_.count - top)}, std::move(band.pixels)};
  if (std::exchange(may_be_slow_, false)) {
    const auto shared = std::make_shared<BandCopy>(std::move(copy));
    if (!time_.Run([shared] { shared->Run(); })) return;
    copy = std::move(*shared);
  } else {
    copy.Run();
  }
  band.pixels = std::move(copy.pixels);
  band.is_whole = SUCCEEDED(copy.result);
}

// The rows of a transparent canvas with a picture on a part of it.
class CanvasRows : public RowSource {
 public:
  CanvasRows(std::unique_ptr<RowSource> picture, int width, int height, const PixelRect& place);

  Side Across() const override { return across_; }
  Side Down() const override { return down_; }
  bool IsOpaque() const override { return false; }
  bool Start(int left, int right, int top) override;
  const Pixel* Row(int y) override;

 private:
  std::unique_ptr<RowSource> picture_;
  Side across_;
  Side down_;
  PixelRect place_;
  // The first wanted column, and the part of the wanted columns that the picture covers.
  int left_ = 0;
  PixelRect seen_;
  // The last two rows.
  std::vector<Pixel> rows_[2];
};

CanvasRows::CanvasRows(std::unique_ptr<RowSource> picture, int width, int height, const PixelRect& place)
    : picture_(std::move(picture)),
      across_{width, static_cast<double>(width)},
      down_{height, static_cast<double>(height)},
      place_(place) {}

bool CanvasRows::Start(int left, int right, int top) {
  left_ = left;
  for (auto& row : rows_) row.assign(static_cast<std::size_t>(right - left), 0);
  seen_ = Intersect(place_, {left, 0, right - left, down_.count});
  if (seen_.IsEmpty()) return picture_->Start(0, 1, 0) && picture_->Row(0) != nullptr;
  return picture_->Start(seen_.left - place_.left, seen_.Right() - place_.left, std::max(0, top - place_.top));
}

const Pixel* CanvasRows::Row(int y) {
  auto& row = rows_[y % 2];
  std::fill(row.begin(), row.end(), 0);
  if (!seen_.IsEmpty() && y >= seen_.top && y < seen_.Bottom()) {
    const Pixel* from = picture_->Row(y - place_.top);
    if (from == nullptr) return nullptr;
    std::copy_n(from, seen_.width, row.begin() + (seen_.left - left_));
  }
  return row.data();
}

// None of the older formats packs more pixels into a byte. A file that claims more is damaged.
constexpr std::uint64_t kMostPixelsToByte = 4096;

bool IsJpeg(ByteSpan bytes) { return ByteReader(bytes).U16() == 0xD8FF; }
bool IsPng(ByteSpan bytes) { return ByteReader(bytes).U32() == 0x474E5089; }

bool IsBmp(ByteSpan bytes) { return ByteReader(bytes).U16() == 0x4D42; }
bool IsTiff(ByteSpan bytes) {
  const std::uint32_t start = ByteReader(bytes).U32();
  return start == 0x002A4949 || start == 0x2A004D4D;
}

// Decoders of these hold a few rows. All others may put the whole picture together in memory first.
bool IsDecodedByRows(ByteSpan bytes) { return IsBmp(bytes) || (IsJpeg(bytes) && !HasSeveralScans(bytes)); }

// HEIC and its relatives are turned by their decoder.
CameraTags ReadCameraTags(ByteSpan bytes) {
  MemoryBytes source(bytes);
  if (IsJpeg(bytes)) return JpegCameraTags(source);
  if (IsPng(bytes)) return PngCameraTags(source);
  // The tags of a TIFF file are those that Exif has taken over.
  return ExifCameraTags(IsTiff(bytes) ? bytes : WebpExif(bytes));
}

// The ICC profile in the file. Empty without one, or if it is too long.
std::vector<std::uint8_t> ReadProfile(const WicFactory& factory, const WicFrame& frame, ByteSpan bytes) {
  MemoryBytes source(bytes);
  // Not all decoders of JPEG report it.
  if (IsJpeg(bytes)) return JpegProfile(source);
  ComPointer<IWICColorContext> context;
  if (FAILED(factory->CreateColorContext(context.Out()))) return {};
  IWICColorContext* first = context.Get();
  UINT count = 0;
  UINT size = 0;
  auto type = WICColorContextUninitialized;
  if (FAILED(frame->GetColorContexts(1, &first, &count)) || count == 0 || FAILED(context->GetType(&type)) ||
      type != WICColorContextProfile || FAILED(context->GetProfileBytes(0, nullptr, &size)) || size > kLongestProfile) {
    return {};
  }
  std::vector<std::uint8_t> profile(size);
  if (FAILED(context->GetProfileBytes(size, profile.data(), &size))) return {};
  return profile;
}

// By the tag that says what a pixel is made of.
bool IsGreyTiff(const WicFrame& frame) {
  // 0: white is zero.
  constexpr USHORT kBlackIsZero = 1;
  ComPointer<IWICMetadataQueryReader> tags;
  PROPVARIANT kind{};
  const bool is_grey = SUCCEEDED(frame->GetMetadataQueryReader(tags.Out())) &&
                       SUCCEEDED(tags->GetMetadataByName(L"/ifd/{ushort=262}", &kind)) && kind.vt == VT_UI2 &&
                       kind.uiVal <= kBlackIsZero;
  PropVariantClear(&kind);
  return is_grey;
}

bool IsGrey(const WicFrame& frame, ByteSpan bytes) {
  // Greys with alpha are decoded as colours. Behind the depth stands what a pixel is made of.
  constexpr std::size_t kPngKind = 25;
  constexpr unsigned kPngHasColours = 2;
  if (IsPng(bytes)) return bytes.size() > kPngKind && (bytes[kPngKind] & kPngHasColours) == 0;
  if (IsTiff(bytes) && IsGreyTiff(frame)) return true;
  WICPixelFormatGUID format{};
  if (FAILED(frame->GetPixelFormat(&format))) return false;
  return format == GUID_WICPixelFormatBlackWhite || format == GUID_WICPixelFormat2bppGray ||
         format == GUID_WICPixelFormat4bppGray || format == GUID_WICPixelFormat8bppGray ||
         format == GUID_WICPixelFormat16bppGray;
}

void CheckSize(PixelSize size, ByteSpan bytes) {
  if (size.width <= 0 || size.height <= 0) CheckPicture(WINCODEC_ERR_BADIMAGE);
  const std::uint64_t count = static_cast<std::uint64_t>(size.width) * static_cast<std::uint64_t>(size.height);
  if (IsBmp(bytes) || IsJpeg(bytes) || IsPng(bytes) || IsTiff(bytes) || ReadGifCanvas(bytes).width > 0) {
    if (count / kMostPixelsToByte > bytes.size()) CheckPicture(WINCODEC_ERR_BADIMAGE);
  }
  if (IsJpeg(bytes) && IsDecodedByRows(bytes)) return;
  if (count > kPictureMemoryLimit / sizeof(Pixel)) CheckPicture(E_OUTOFMEMORY);
}

bool IsOpaque(const WicFactory& factory, const WicFrame& frame) {
  WICPixelFormatGUID format{};
  CheckPicture(frame->GetPixelFormat(&format));
  ComPointer<IWICPalette> palette;
  CheckPicture(factory->CreatePalette(palette.Out()));
  if (SUCCEEDED(frame->CopyPalette(palette.Get()))) {
    BOOL has_alpha = TRUE;
    return SUCCEEDED(palette->HasAlpha(&has_alpha)) && has_alpha == FALSE;
  }
  ComPointer<IWICComponentInfo> component;
  if (FAILED(factory->CreateComponentInfo(format, component.Out()))) return false;
  const auto info = component.As<IWICPixelFormatInfo2>();
  BOOL has_alpha = TRUE;
  return info.Get() != nullptr && SUCCEEDED(info->SupportsTransparency(&has_alpha)) && has_alpha == FALSE;
}

UINT DividedUp(int side, UINT divisor) { return (static_cast<UINT>(side) + divisor - 1) / divisor; }

// The largest reduction by the decoder itself that leaves the picture no smaller than the box.
UINT ChooseReduction(const WicFrame& frame, PixelSize size, PixelSize box) {
  const auto transform = frame.As<IWICBitmapSourceTransform>();
  if (transform.Get() == nullptr) return 1;
  for (const UINT divisor : {8U, 4U, 2U}) {
    const UINT width = DividedUp(size.width, divisor);
    const UINT height = DividedUp(size.height, divisor);
    if (width < static_cast<UINT>(box.width) || height < static_cast<UINT>(box.height)) continue;
    UINT closest_width = width;
    UINT closest_height = height;
    if (SUCCEEDED(transform->GetClosestSize(&closest_width, &closest_height)) && closest_width == width &&
        closest_height == height) {
      return divisor;
    }
  }
  return 1;
}

WicSource AsOurPixels(const WicFactory& factory, IWICBitmapSource* from) {
  ComPointer<IWICFormatConverter> converter;
  CheckPicture(factory->CreateFormatConverter(converter.Out()));
  CheckPicture(converter->Initialize(from, GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone, nullptr, 0,
                                     WICBitmapPaletteTypeCustom));
  return converter.As<IWICBitmapSource>();
}

}  // namespace

WicFactory CreateWicFactory() {
  WicFactory factory;
  if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(factory.Out())))) {
    FailLoad("The system has no picture decoders", FailureNumber::kInternal);
  }
  return factory;
}

WicPicture::WicPicture(std::vector<std::uint8_t> bytes)
    : factory_(CreateWicFactory()),
      file_(std::make_shared<const std::vector<std::uint8_t>>(std::move(bytes))),
      canvas_(ReadGifCanvas(*file_)),
      frame_(OpenFrame()) {
  UINT width = 0;
  UINT height = 0;
  CheckPicture(frame_->GetSize(&width, &height));
  frame_size_ = {static_cast<int>(width), static_cast<int>(height)};
  const bool on_canvas = canvas_.width > 0;
  const PixelSize size = on_canvas ? PixelSize{canvas_.width, canvas_.height} : frame_size_;
  CheckSize(size, *file_);
  const CameraTags tags = ReadCameraTags(*file_);
  Describe(size, tags.orientation, tags.date_taken);
  if (const auto colours = ColourProfile::Read(ReadProfile(factory_, frame_, *file_), IsGrey(frame_, *file_))) {
    ConvertColours([colours](std::span<Pixel> row) { colours->ToScreen(row); });
  }
}

std::unique_ptr<RowSource> WicPicture::Open(PixelSize stored_box) {
  const WicFrame frame = frame_.Get() != nullptr ? std::move(frame_) : OpenFrame();
  const UINT divisor = ChooseReduction(frame, frame_size_, stored_box);
  ComPointer<IWICBitmapScaler> scaler;
  IWICBitmapSource* source = frame.Get();
  const UINT width = DividedUp(frame_size_.width, divisor);
  const UINT height = DividedUp(frame_size_.height, divisor);
  if (divisor > 1) {
    // The system's scaler passes the size on to a decoder that can scale.
    CheckPicture(factory_->CreateBitmapScaler(scaler.Out()));
    CheckPicture(scaler->Initialize(source, width, height, WICBitmapInterpolationModeFant));
    source = scaler.Get();
  }
  const RowSource::Side across{static_cast<int>(width), frame_size_.width / static_cast<double>(divisor)};
  const RowSource::Side down{static_cast<int>(height), frame_size_.height / static_cast<double>(divisor)};
  auto decoding = std::make_shared<WicDecoding>(WicDecoding{file_, AsOurPixels(factory_, source)});
  auto rows =
      std::make_unique<WicRows>(std::move(decoding), across, down, IsOpaque(factory_, frame), IsDecodedByRows(*file_));
  const bool is_covered = canvas_.width == frame_size_.width && canvas_.height == frame_size_.height;
  if (canvas_.width == 0 || is_covered) return rows;
  return std::make_unique<CanvasRows>(std::move(rows), canvas_.width, canvas_.height, canvas_.first);
}

WicFrame WicPicture::OpenFrame() const {
  ComPointer<IWICStream> stream;
  CheckPicture(factory_->CreateStream(stream.Out()));
  // The stream only reads, though its parameter is not const.
  CheckPicture(stream->InitializeFromMemory(const_cast<BYTE*>(file_->data()), static_cast<DWORD>(file_->size())));
  ComPointer<IWICBitmapDecoder> decoder;
  CheckPicture(factory_->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand, decoder.Out()));
  WicFrame frame;
  CheckPicture(decoder->GetFrame(0, frame.Out()));
  return frame;
}

}  // namespace quorvale
