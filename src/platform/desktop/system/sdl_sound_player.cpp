#include "platform/desktop/system/sdl_sound_player.h"

#include <SDL_thread.h>

#include <algorithm>
#include <chrono>
#include <system_error>
#include <utility>

#include "platform/desktop/system/loaded_library.h"
#include "platform/desktop/system/wave_stream.h"

namespace quorvale {
namespace {

constexpr std::uint16_t kFramesPerBuffer = 2048;

void Ignore(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/, const char* /*format*/, ...) {}

// On a machine without a sound card ALSA writes errors to the terminal. Its own handler is replaced, so that other
// messages are not lost.
void SilenceAlsa() {
  using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
  int (*const set_handler)(Handler) = LoadedLibrary("libasound.so.2").Find("snd_lib_error_set_handler");
  if (set_handler != nullptr) set_handler(&Ignore);
}

using std::chrono::milliseconds;

// Opening succeeds or fails within 1 to 3 ms. A device that takes longer counts as present, so that a slow sound server
// does not delay the show.
constexpr milliseconds kAnswerPatience{20};
// Two seconds of samples bridge a slow disk. The thread wakes when half of them are played.
constexpr std::uint32_t kQueueAhead = 2 * kOutputBytesPerSecond;
// Reopening costs about as much as a silent device for this long.
constexpr milliseconds kSilenceUntilClose{1000};
constexpr milliseconds kMinNap{20};

milliseconds PlayingTime(std::uint32_t bytes) {
  return milliseconds(std::uint64_t{bytes} * 1000 / kOutputBytesPerSecond);
}

}  // namespace

AudioDevice::AudioDevice() { SilenceAlsa(); }

bool AudioDevice::Open() {
  if (IsOpen()) return true;
  // Only the audio part: `SDL_Init` would also start an event queue, signal handlers and the message bus.
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

SdlSoundPlayer::~SdlSoundPlayer() {
  {
    const std::lock_guard lock(mutex_);
    stop_ = true;
  }
  commanded_.notify_one();
  if (worker_.joinable()) worker_.join();
}

bool SdlSoundPlayer::PlaySound(const std::string& path, std::uint32_t /*flags*/) {
  std::unique_ptr<WaveStream> sound = WaveStream::Open(path);
  const bool playable = sound != nullptr;
  if (!worker_.joinable()) {
    if (!playable) return false;
    try {
      worker_ = std::thread(&SdlSoundPlayer::Run, this);
    } catch (const std::system_error&) {
      return false;
    }
  }

  std::unique_lock lock(mutex_);
  next_ = std::move(sound);
  cut_off_ = true;
  answer_.reset();
  commanded_.notify_one();
  if (!playable) return false;
  answered_.wait_for(lock, kAnswerPatience, [this] { return answer_.has_value(); });
  return answer_.value_or(true);
}

void SdlSoundPlayer::Run() {
  AudioDevice device;
  std::unique_lock lock(mutex_);
  while (true) {
    const bool commanded = WaitForCommand(device, lock);
    if (stop_) break;
    cut_off_ = false;
    if (const std::unique_ptr<WaveStream> sound = std::move(next_)) Play(*sound, device, lock);
    if (commanded && device.IsOpen()) continue;
    lock.unlock();
    device.Close();
    lock.lock();
  }
  device.Abandon();
  SDL_TLSCleanup();  // SDL does this only for threads that it has created
}

// False if an open device has been silent long enough to be closed.
bool SdlSoundPlayer::WaitForCommand(const AudioDevice& device, std::unique_lock<std::mutex>& lock) {
  const auto has_command = [this] { return HasCommand(); };
  if (device.IsOpen()) return commanded_.wait_for(lock, kSilenceUntilClose, has_command);
  commanded_.wait(lock, has_command);
  return true;
}

// Feeds the device until the sound has ended or a command comes.
void SdlSoundPlayer::Play(WaveStream& sound, AudioDevice& device, std::unique_lock<std::mutex>& lock) {
  lock.unlock();
  const bool opened = device.Open();
  lock.lock();
  // A command that came meanwhile gets its own answer.
  if (!HasCommand()) answer_ = opened;
  answered_.notify_one();
  if (!opened) return;

  bool more = true;
  while (!HasCommand()) {
    lock.unlock();
    const std::uint32_t queued = device.QueuedBytes();
    const bool feed = more && queued < kQueueAhead;
    if (feed) {
      const std::vector<std::uint8_t> samples = sound.Read();
      more = !samples.empty();
      device.Queue(samples);
    }
    lock.lock();
    if (feed) continue;
    if (queued == 0) return;
    commanded_.wait_for(lock, std::max(PlayingTime(more ? queued / 2 : queued), kMinNap),
                        [this] { return HasCommand(); });
  }
  device.Clear();
}

}  // namespace quorvale
