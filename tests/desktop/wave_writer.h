#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace quorvale {

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
