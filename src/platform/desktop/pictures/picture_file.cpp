#include "platform/desktop/pictures/picture_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/desktop/pictures/colour_profile.h"

namespace quorvale {
namespace {

// Never blocks, as opening a pipe would.
FileDescriptor Open(const std::string& path) {
  if (path.find('\0') != std::string::npos) FailLoad("File not found", FailureNumber::kNotFound);
  FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (file.IsOpen()) return file;
  if (errno == ENOENT || errno == ENOTDIR) FailLoad("File not found", FailureNumber::kNotFound);
  FailLoad("File can't be opened", FailureNumber::kUnreadable);
}

}  // namespace

PictureFile::PictureFile(const std::string& path, PictureReading reading)
    : piece_size_(reading.piece_size), file_(Open(path)) {
  struct stat status {};
  if (fstat(file_.Get(), &status) != 0 || !S_ISREG(status.st_mode)) {
    FailLoad("Not a plain file", FailureNumber::kUnreadable);
  }
  if (static_cast<std::uintmax_t>(status.st_size) > kPictureMemoryLimit) {
    FailLoad("Picture file too large");
  }
  size_ = static_cast<std::size_t>(status.st_size);
  StartClock();
  const bool held = size_ <= reading.held_size;
  Read(0, held ? size_ : std::min(size_, piece_size_));
  if (size_ > 0 && buffer_.empty()) FailLoad("File can't be read", FailureNumber::kUnreadable);
  if (held) {
    size_ = buffer_.size();
    file_.Close();
  }
}

std::span<const std::uint8_t> PictureFile::From(std::size_t offset) noexcept {
  if (offset >= size_) return {};
  if (file_.IsOpen() && (offset < buffer_offset_ || offset >= buffer_offset_ + buffer_.size())) {
    if (std::chrono::steady_clock::now() > latest_) return {};
    Read(offset, std::min(piece_size_, size_ - offset));
  }
  return std::span<const std::uint8_t>(buffer_).subspan(std::min(offset - buffer_offset_, buffer_.size()));
}

std::span<const std::uint8_t> PictureFile::All() {
  if (file_.IsOpen()) {
    Read(0, size_);
    size_ = buffer_.size();
    file_.Close();
  }
  return buffer_;
}

bool PictureFile::BeginsWith(std::string_view bytes) noexcept {
  std::array<std::uint8_t, 8> start{};
  return bytes.size() <= start.size() && Copy(0, std::span(start).first(bytes.size())) &&
         std::memcmp(start.data(), bytes.data(), bytes.size()) == 0;
}

// If the file has shrunk or its disk fails, the bytes end there. After the first call the buffer has all the memory
// that it needs, so later calls don't throw.
void PictureFile::Read(std::size_t offset, std::size_t count) {
  buffer_.resize(count);
  buffer_offset_ = offset;
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got = pread(file_.Get(), buffer_.data() + done, count - done, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  buffer_.resize(done);
}

void FilePicture::UseProfile(std::span<const std::uint8_t> profile, bool is_grey) {
  if (auto colours = ColourProfile::Read(profile, is_grey)) {
    ConvertColours([colours = std::move(colours)](std::span<Pixel> row) { colours->ToScreen(row); });
  }
}

}  // namespace quorvale
