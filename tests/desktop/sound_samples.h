#pragma once

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>

#include "platform/desktop/system/files.h"

namespace quorvale {

// The reading end of a sound device that writes its samples into a pipe, about as fast as they are read.
class SoundCapture {
 public:
  explicit SoundCapture(const std::string& path) {
    mkfifo(path.c_str(), S_IRUSR | S_IWUSR);
    pipe_ = FileDescriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", path.c_str(), 1);
    setenv("SDL_DISKAUDIODELAY", "1", 1);
  }
  ~SoundCapture() { unsetenv("SDL_AUDIODRIVER"); }

  // The left channel of the next frame; nothing when the device is closed, or gives nothing for ten seconds.
  std::optional<int> NextFrame() {
    while (held_ - at_ < 4) {
      if (!Fill()) return std::nullopt;
    }
    const int left = static_cast<std::int16_t>(buffer_[at_] | buffer_[at_ + 1] << 8);
    at_ += 4;
    return left;
  }

  // For devices that are opened from now on.
  void RunInRealTime() { unsetenv("SDL_DISKAUDIODELAY"); }

  void Close() { pipe_.Close(); }

 private:
  bool Fill() {
    for (std::size_t i = at_; i < held_; ++i) buffer_[i - at_] = buffer_[i];
    held_ -= at_;
    at_ = 0;
    pollfd wait{pipe_.Get(), POLLIN, 0};
    if (poll(&wait, 1, 10'000) <= 0) return false;
    const ssize_t got = read(pipe_.Get(), buffer_.data() + held_, buffer_.size() - held_);
    if (got <= 0) return false;
    held_ += static_cast<std::size_t>(got);
    return true;
  }

  FileDescriptor pipe_;
  std::array<std::uint8_t, 4096> buffer_{};
  std::size_t at_ = 0;
  std::size_t held_ = 0;
};

// Puts a RIFF wave file together, chunk by chunk, right or wrong as the test wants it.
class WaveWriter {
 public:
  static std::string Little(std::uint64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text.push_back(static_cast<char>(value >> (8 * i)));
    return text;
  }

  static std::string Repeat(const std::string& bytes, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += bytes;
    return text;
  }

  WaveWriter& Chunk(const std::string& tag, const std::string& body) { return Chunk(tag, body, body.size()); }
  // A chunk whose header says `size`, whatever it holds.
  WaveWriter& Chunk(const std::string& tag, const std::string& body, std::uint64_t size) {
    chunks_ += tag + Little(size, 4) + body + std::string(body.size() % 2, '\0');
    return *this;
  }

  WaveWriter& Format(int coding, int channels, int rate, int block, int bits, const std::string& extension = {}) {
    return Chunk("fmt ", Little(coding, 2) + Little(channels, 2) + Little(rate, 4) +
                             Little(static_cast<std::uint64_t>(rate) * block, 4) + Little(block, 2) + Little(bits, 2) +
                             extension);
  }

  std::string Bytes() const { return "RIFF" + Little(4 + chunks_.size(), 4) + "WAVE" + chunks_; }

  void Save(const std::string& path) const { std::ofstream(path, std::ios::binary) << Bytes(); }

 private:
  std::string chunks_;
};

}  // namespace quorvale
