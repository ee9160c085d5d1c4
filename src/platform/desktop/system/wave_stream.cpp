#include "platform/desktop/system/wave_stream.h"

#include <optional>

namespace quorvale {

std::unique_ptr<WaveStream> WaveStream::Open(const std::string& path) {
  std::optional<WaveFile> file = WaveFile::Open(path);
  if (!file) return nullptr;
  std::unique_ptr<WaveStream> stream(new WaveStream(std::move(*file)));
  return stream->DecodePiece() ? std::move(stream) : nullptr;
}

std::vector<std::uint8_t> WaveStream::Read() {
  // The converter keeps some samples back, so that a short piece alone may give nothing.
  while (!at_end_ && SDL_AudioStreamAvailable(converter_.get()) == 0) {
    if (DecodePiece()) continue;
    at_end_ = true;
    SDL_AudioStreamFlush(converter_.get());
  }
  std::vector<std::uint8_t> samples(static_cast<std::size_t>(SDL_AudioStreamAvailable(converter_.get())));
  const int size = SDL_AudioStreamGet(converter_.get(), samples.data(), static_cast<int>(samples.size()));
  samples.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return samples;
}

bool WaveStream::DecodePiece() {
  const std::vector<std::uint8_t> piece = file_.NextPiece();
  if (piece.empty()) return false;

  SDL_AudioSpec spec{};
  std::uint8_t* samples = nullptr;
  std::uint32_t size = 0;
  SDL_RWops* source = SDL_RWFromConstMem(piece.data(), static_cast<int>(piece.size()));
  if (SDL_LoadWAV_RW(source, 1, &spec, &samples, &size) == nullptr) return false;
  const std::unique_ptr<std::uint8_t, decltype(&SDL_FreeWAV)> owned(samples, &SDL_FreeWAV);

  if (!converter_) {
    converter_.reset(
        SDL_NewAudioStream(spec.format, spec.channels, spec.freq, kOutputFormat, kOutputChannels, kOutputRate));
  }
  return converter_ && SDL_AudioStreamPut(converter_.get(), samples, static_cast<int>(size)) == 0;
}

}  // namespace quorvale
