#include "platform/desktop/system/wave_stream.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <new>
#include <optional>

#include "base/byte_reader.h"

namespace quorvale {
namespace {

constexpr std::uint32_t kChunkHeaderSize = 8;
constexpr std::uint32_t kMinFormatSize = 16;
// Limits that no real sound exceeds.
constexpr std::uint32_t kMaxFormatSize = 1024;
constexpr int kMaxChunks = 256;
// In Hz. Outside these, conversion would turn a few bytes into minutes of sound, or the reverse.
constexpr std::uint32_t kMinRate = 1000;
constexpr std::uint32_t kMaxRate = 768'000;
constexpr std::uint32_t kMaxPieceSize = 32 * 1024;

void AppendLittle(std::vector<std::uint8_t>& bytes, std::uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

void AppendTag(std::vector<std::uint8_t>& bytes, const char* tag) { bytes.insert(bytes.end(), tag, tag + 4); }

bool IsTag(const std::uint8_t* bytes, const char* tag) { return std::memcmp(bytes, tag, 4) == 0; }

// Returns the number of bytes read: fewer than `size` at the file's end or after an error.
std::size_t ReadAt(int fd, std::uint64_t position, std::uint8_t* bytes, std::size_t size) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t got = pread(fd, bytes + done, size - done, static_cast<off_t>(position + done));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

}  // namespace

std::optional<WaveFile> WaveFile::Open(const std::string& path) {
  WaveFile wave;
  // Without O_NONBLOCK, opening a pipe waits for a writer.
  wave.file_ = FileDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  struct stat status {};
  if (!wave.file_.IsOpen() || fstat(wave.file_.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  if (!wave.FindData(static_cast<std::uint64_t>(status.st_size))) return std::nullopt;
  return wave;
}

bool WaveFile::FindData(std::uint64_t file_size) {
  std::array<std::uint8_t, 12> riff{};
  if (ReadAt(file_.Get(), 0, riff.data(), riff.size()) < riff.size()) return false;
  if (!IsTag(riff.data(), "RIFF") || !IsTag(riff.data() + 8, "WAVE")) return false;

  std::uint64_t position = riff.size();
  for (int chunk = 0; chunk < kMaxChunks; ++chunk) {
    std::array<std::uint8_t, kChunkHeaderSize> header{};
    if (ReadAt(file_.Get(), position, header.data(), header.size()) < header.size()) return false;
    position += header.size();
    const std::uint32_t size = ByteReader(header, 4).U32();
    if (IsTag(header.data(), "data")) {
      position_ = position;
      end_ = std::min(position + size, file_size);
      return !format_.empty() && position_ < end_;
    }
    if (IsTag(header.data(), "fmt ") && !ReadFormat(position, size)) return false;
    position += std::uint64_t{size} + size % 2;
  }
  return false;
}

bool WaveFile::ReadFormat(std::uint64_t position, std::uint32_t size) {
  if (size < kMinFormatSize || size > kMaxFormatSize) return false;
  format_.resize(size);
  if (ReadAt(file_.Get(), position, format_.data(), size) < size) return false;
  const std::uint32_t rate = ByteReader(format_, 4).U32();
  const std::uint32_t block = ByteReader(format_, 12).U16();
  if (rate < kMinRate || rate > kMaxRate || block == 0) return false;
  piece_size_ = std::max(std::min(kMaxPieceSize / block, rate / 4) * block, block);
  return true;
}

std::vector<std::uint8_t> WaveFile::NextPiece() {
  std::vector<std::uint8_t> piece;
  const auto wanted = static_cast<std::uint32_t>(std::min<std::uint64_t>(piece_size_, end_ - position_));
  if (wanted == 0) return piece;

  std::vector<std::uint8_t> data(wanted);
  data.resize(ReadAt(file_.Get(), position_, data.data(), wanted));
  position_ += data.size();
  if (data.size() < wanted) end_ = position_;
  if (data.empty()) return piece;

  const auto format_size = static_cast<std::uint32_t>(format_.size());
  const auto data_size = static_cast<std::uint32_t>(data.size());
  AppendTag(piece, "RIFF");
  AppendLittle(piece, 4 + kChunkHeaderSize + format_size + format_size % 2 + kChunkHeaderSize + data_size);
  AppendTag(piece, "WAVE");
  AppendTag(piece, "fmt ");
  AppendLittle(piece, format_size);
  piece.insert(piece.end(), format_.begin(), format_.end());
  if (format_size % 2 != 0) piece.push_back(0);
  AppendTag(piece, "data");
  AppendLittle(piece, data_size);
  piece.insert(piece.end(), data.begin(), data.end());
  return piece;
}

std::unique_ptr<WaveStream> WaveStream::Open(const std::string& path) {
  std::optional<WaveFile> file = WaveFile::Open(path);
  if (!file) return nullptr;
  std::unique_ptr<WaveStream> stream(new WaveStream(std::move(*file)));
  return stream->DecodePiece() ? std::move(stream) : nullptr;
}

// Runs on the player's thread, where an exception would end the program.
std::vector<std::uint8_t> WaveStream::Read() {
  try {
    return NextSamples();
  } catch (const std::bad_alloc&) {
    at_end_ = true;
    return {};
  }
}

std::vector<std::uint8_t> WaveStream::NextSamples() {
  // The converter holds some samples back, so a short piece may give none.
  while (!at_end_ && SDL_AudioStreamAvailable(converter_.get()) == 0) {
    if (DecodePiece()) continue;
    at_end_ = true;
    PushOut();
  }
  std::vector<std::uint8_t> samples(static_cast<std::size_t>(SDL_AudioStreamAvailable(converter_.get())));
  const int size = SDL_AudioStreamGet(converter_.get(), samples.data(), static_cast<int>(samples.size()));
  samples.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return samples;
}

bool WaveStream::DecodePiece() {
  const std::vector<std::uint8_t> piece = file_.NextPiece();
  if (piece.empty()) return false;

  std::uint8_t* samples = nullptr;
  std::uint32_t size = 0;
  SDL_RWops* source = SDL_RWFromConstMem(piece.data(), static_cast<int>(piece.size()));
  if (SDL_LoadWAV_RW(source, 1, &spec_, &samples, &size) == nullptr) return false;
  const std::unique_ptr<std::uint8_t, decltype(&SDL_FreeWAV)> owned(samples, &SDL_FreeWAV);

  if (!converter_) {
    converter_.reset(
        SDL_NewAudioStream(spec_.format, spec_.channels, spec_.freq, kOutputFormat, kOutputChannels, kOutputRate));
  }
  return converter_ && SDL_AudioStreamPut(converter_.get(), samples, static_cast<int>(size)) == 0;
}

// When the rates differ, the converter holds back the last 512 frames of the slower rate, even at a flush. Appended
// silence pushes them out.
void WaveStream::PushOut() {
  const int frames = 1024 + spec_.freq / 50;
  const int frame_size = spec_.channels * SDL_AUDIO_BITSIZE(spec_.format) / 8;
  const std::vector<std::uint8_t> silence(static_cast<std::size_t>(frames * frame_size), spec_.silence);
  SDL_AudioStreamPut(converter_.get(), silence.data(), frames * frame_size);
  SDL_AudioStreamFlush(converter_.get());
}

}  // namespace quorvale
