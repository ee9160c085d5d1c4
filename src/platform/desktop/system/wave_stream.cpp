#include "platform/desktop/system/wave_stream.h"

#include <new>
#include <optional>

namespace quorvale {

std::unique_ptr<WaveStream> WaveStream::Open(const std::string& path) {
  std::optional<WaveFile> file = WaveFile::Open(path);
  if (!file) return nullptr;
  std::unique_ptr<WaveStream> stream(new WaveStream(std::move(*file)));
  return stream->DecodePiece() ? std::move(stream) : nullptr;
}

// It is called on a thread of its own, where nobody would catch anything.
std::vector<std::uint8_t> WaveStream::Read() {
  try {
    return NextSamples();
  } catch (const std::bad_alloc&) {
    at_end_ = true;
    return {};
  }
}

std::vector<std::uint8_t> WaveStream::NextSamples() {
  // The converter keeps some samples back, so that a short piece alone may give nothing.
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

// A change of rate keeps the last 512 frames of the slower rate back, even from a flush. Silence behind them
// brings them out.
void WaveStream::PushOut() {
  const int frames = 1024 + spec_.freq / 50;
  const int frame_size = spec_.channels * SDL_AUDIO_BITSIZE(spec_.format) / 8;
  const std::vector<std::uint8_t> silence(static_cast<std::size_t>(frames * frame_size), spec_.silence);
  SDL_AudioStreamPut(converter_.get(), silence.data(), frames * frame_size);
  SDL_AudioStreamFlush(converter_.get());
}

}  // namespace quorvale
