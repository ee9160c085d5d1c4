#include "platform/desktop/system/shared_pixels.h"

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

#include "platform/desktop/system/files.h"
#include "platform/desktop/system/x11_windows.h"

namespace quorvale {
namespace {

// Descriptors are passed to the server from this version on. Unlike a System V segment, such memory is gone with the
// processes that use it, however they end.
constexpr int kMajor = 1;
constexpr int kMinor = 2;

// Only such a connection carries descriptors.
bool IsLocal(xcb_connection_t* connection) {
  sockaddr_storage address{};
  socklen_t size = sizeof address;
  return getsockname(xcb_get_file_descriptor(connection), reinterpret_cast<sockaddr*>(&address), &size) == 0 &&
         address.ss_family == AF_UNIX;
}

// A process gets a signal, and not an error, when it exceeds its limit for files.
bool FitsFileLimit(std::size_t bytes) {
  rlimit limit{};
  return getrlimit(RLIMIT_FSIZE, &limit) == 0 && bytes <= limit.rlim_cur;
}

bool CanShare(xcb_connection_t* connection) {
  if (!IsLocal(connection)) return false;
  const xcb_query_extension_reply_t* const extension = xcb_get_extension_data(connection, &xcb_shm_id);
  if (extension == nullptr || extension->present == 0) return false;
  const Owned<xcb_shm_query_version_reply_t> version(
      xcb_shm_query_version_reply(connection, xcb_shm_query_version(connection), nullptr));
  return version && std::pair(int{version->major_version}, int{version->minor_version}) >= std::pair(kMajor, kMinor);
}

}  // namespace

// Memory that the server has attached.
class SharedPixels::Segment {
 public:
  // Null if there is no memory, or the server is on another machine.
  static std::unique_ptr<Segment> Make(xcb_connection_t* connection, std::size_t count) {
    std::unique_ptr<Segment> segment(new Segment(connection, count));
    return segment->IsAttached() ? std::move(segment) : nullptr;
  }
  ~Segment() {
    if (id_ != XCB_NONE) xcb_shm_detach(connection_, id_);
    if (memory_ != MAP_FAILED) munmap(memory_, Bytes());
  }
  Segment(const Segment&) = delete;
  Segment& operator=(const Segment&) = delete;

  Pixel* Pixels() const { return static_cast<Pixel*>(memory_); }
  std::size_t Count() const { return count_; }
  xcb_shm_seg_t Id() const { return id_; }

 private:
  Segment(xcb_connection_t* connection, std::size_t count) : connection_(connection), count_(count) {
    if (!FitsFileLimit(Bytes())) return;
    FileDescriptor file(memfd_create("pixels", MFD_CLOEXEC));
    if (file.Get() < 0 || ftruncate(file.Get(), static_cast<off_t>(Bytes())) != 0) return;
    memory_ = mmap(nullptr, Bytes(), PROT_READ | PROT_WRITE, MAP_SHARED, file.Get(), 0);
    if (memory_ == MAP_FAILED) return;
    const xcb_shm_seg_t id = xcb_generate_id(connection_);
    constexpr std::uint8_t kReadOnly = 1;
    // The library closes the descriptor when it is sent.
    const auto cookie = xcb_shm_attach_fd_checked(connection_, id, file.Release(), kReadOnly);
    if (const Owned<xcb_generic_error_t> error(xcb_request_check(connection_, cookie)); !error) id_ = id;
  }
  bool IsAttached() const { return id_ != XCB_NONE; }
  std::size_t Bytes() const { return count_ * sizeof(Pixel); }

  xcb_connection_t* connection_;
  std::size_t count_;
  void* memory_ = MAP_FAILED;
  xcb_shm_seg_t id_ = XCB_NONE;
};

std::shared_ptr<SharedPixels> SharedPixels::For(xcb_connection_t* connection, std::uint32_t window) {
  if (!CanShare(connection)) return {};
  const Owned<xcb_get_geometry_reply_t> geometry(
      xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
  if (!geometry || !StoresPixelsAsRgb(connection, geometry->depth)) return {};
  return std::shared_ptr<SharedPixels>(new SharedPixels(connection, window, geometry->depth));
}

SharedPixels::SharedPixels(xcb_connection_t* connection, std::uint32_t window, std::uint8_t depth)
    : connection_(connection), context_(xcb_generate_id(connection)), depth_(depth) {
  xcb_create_gc(connection_, context_, window, 0, nullptr);
}

SharedPixels::~SharedPixels() { xcb_free_gc(connection_, context_); }

std::shared_ptr<Pixel[]> SharedPixels::Take(std::size_t count) {
  if (count == 0) return {};
  most_ = std::max(most_, count);
  std::unique_ptr<Segment> segment = std::move(spare_);
  if (segment && segment->Count() == most_) {
    FocusedWindow(connection_);  // any answer comes after all that was asked before
  } else {
    segment.reset();
    segment = Segment::Make(connection_, most_);
  }
  if (!segment) return {};
  Pixel* const pixels = segment->Pixels();
  lent_.push_back(std::move(segment));
  return {pixels, [self = shared_from_this()](const Pixel* given) { self->GiveBack(given); }};
}

std::ptrdiff_t SharedPixels::PlaceOf(const Pixel* pixels) const {
  return std::find_if(lent_.begin(), lent_.end(), [&](const auto& lent) { return lent->Pixels() == pixels; }) -
         lent_.begin();
}

void SharedPixels::GiveBack(const Pixel* pixels) {
  const auto place = lent_.begin() + PlaceOf(pixels);
  spare_ = std::move(*place);
  lent_.erase(place);
}

bool SharedPixels::Put(std::uint32_t window, const ConstPixelView& pixels, const std::vector<PixelRect>& parts) const {
  const std::ptrdiff_t place = PlaceOf(pixels.pixels);
  constexpr int kFarthest = std::numeric_limits<std::int16_t>::max();
  if (place == std::ssize(lent_) || std::max(pixels.width, pixels.height) > kFarthest) return false;
  const xcb_shm_seg_t id = lent_[static_cast<std::size_t>(place)]->Id();
  for (const PixelRect& part : parts) {
    const auto left = static_cast<std::int16_t>(part.left);
    const auto top = static_cast<std::int16_t>(part.top);
    xcb_shm_put_image(connection_, window, context_, static_cast<std::uint16_t>(pixels.width),
                      static_cast<std::uint16_t>(pixels.height), static_cast<std::uint16_t>(left),
                      static_cast<std::uint16_t>(top), static_cast<std::uint16_t>(part.width),
                      static_cast<std::uint16_t>(part.height), left, top, depth_, XCB_IMAGE_FORMAT_Z_PIXMAP, 0, id, 0);
  }
  xcb_flush(connection_);
  return true;
}

}  // namespace quorvale
