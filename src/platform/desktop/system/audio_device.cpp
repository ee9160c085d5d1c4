#include "platform/desktop/system/audio_device.h"

#include <dlfcn.h>

#include <utility>

#include "platform/desktop/system/wave_stream.h"

namespace quorvale {
namespace {

constexpr std::uint16_t kFramesPerBuffer = 2048;

void Ignore(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/, const char* /*format*/, ...) {}

// The sound library underneath complains on the standard error stream of every machine without a card. Its
// handler is replaced, so that nobody else's messages are lost.
void SilenceAlsa() {
  void* library = dlopen("libasound.so.2", RTLD_LAZY);
  if (library == nullptr) return;
  using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
  using SetHandler = int (*)(Handler);
  if (auto set_handler = reinterpret_cast<SetHandler>(dlsym(library, "snd_lib_error_set_handler"))) {
    set_handler(&Ignore);
  }
}

}  // namespace

AudioDevice::AudioDevice() { SilenceAlsa(); }

bool AudioDevice::Open() {
  if (IsOpen()) return true;
  // The audio part by itself: the usual initialisation would bring an event queue, signal handlers and the
  // message bus along.
  if (!started_ && SDL_AudioInit(nullptr) != 0) return false;
  started_ = true;
  SDL_AudioSpec wanted{};
  wanted.freq = kOutputRate;
  wanted.format = kOutputFormat;
  wanted.channels = kOutputChannels;
  wanted.samples = kFramesPerBuffer;
  device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
  if (!IsOpen()) return false;
  SDL_PauseAudioDevice(device_, 0);
  return true;
}

void AudioDevice::Queue(const std::vector<std::uint8_t>& samples) const {
  SDL_QueueAudio(device_, samples.data(), static_cast<std::uint32_t>(samples.size()));
}

void AudioDevice::Close() {
  if (!std::exchange(started_, false)) return;
  if (IsOpen()) SDL_CloseAudioDevice(std::exchange(device_, 0));
  SDL_AudioQuit();
}

void AudioDevice::Abandon() {
  started_ = false;
  device_ = 0;
}

}  // namespace quorvale
