#pragma once

#include <SDL_audio.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/system/files.h"

namespace quorvale {

// A RIFF wave file of any coding. It is read in pieces, so long files take no more memory.
class WaveFile {
 public:
  // No value if it is not a regular file or has no format chunk followed by data. Sizes beyond the file's end are
  // cut.
  static std::optional<WaveFile> Open(const std::string& path);

  // The next quarter of a second or less as a complete small wave file. Empty at the end of the data, or if the file
  // can't be read any more.
  std::vector<std::uint8_t> NextPiece();

 private:
  WaveFile() = default;
  bool FindData(std::uint64_t file_size);
  bool ReadFormat(std::uint64_t position, std::uint32_t size);

  FileDescriptor file_;
  std::vector<std::uint8_t> format_;  // the body of the format chunk
  std::uint64_t position_ = 0;
  std::uint64_t end_ = 0;
  std::uint32_t piece_size_ = 0;  // bytes; a multiple of the block size
};

// The format of the sound device. All sounds are converted to it.
inline constexpr int kOutputRate = 44'100;  // Hz
inline constexpr SDL_AudioFormat kOutputFormat = AUDIO_S16SYS;
inline constexpr int kOutputChannels = 2;
inline constexpr int kOutputBytesPerSecond = kOutputRate * kOutputChannels * 2;

// A wave file, decoded and converted to the output format while it is read.
class WaveStream {
 public:
  // Decodes the beginning. Null if the file is missing, damaged there or in an unknown coding.
  static std::unique_ptr<WaveStream> Open(const std::string& path);

  // The next samples in the output format. Empty at the end, or if memory runs out.
  std::vector<std::uint8_t> Read();

 private:
  struct FreeStream {
    void operator()(SDL_AudioStream* stream) const { SDL_FreeAudioStream(stream); }
  };

  explicit WaveStream(WaveFile file) : file_(std::move(file)) {}
  std::vector<std::uint8_t> NextSamples();
  bool DecodePiece();
  void PushOut();

  WaveFile file_;
  SDL_AudioSpec spec_{};  // of the decoded samples
  std::unique_ptr<SDL_AudioStream, FreeStream> converter_;
  bool at_end_ = false;
};

}  // namespace quorvale
