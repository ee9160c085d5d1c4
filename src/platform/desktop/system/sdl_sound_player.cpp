#include "platform/desktop/system/sdl_sound_player.h"

#include <SDL_thread.h>

#include <algorithm>
#include <chrono>
#include <system_error>
#include <utility>

namespace quorvale {
namespace {

using std::chrono::milliseconds;

// A device opens, or proves absent, in 1 to 3 ms. One that takes longer than this counts as there, so that a
// slow sound server never holds up the show.
constexpr milliseconds kAnswerPatience{20};
// What is queued ahead bridges a slow disk; half of it gone wakes the thread.
constexpr std::uint32_t kQueueAhead = 2 * kOutputBytesPerSecond;
// Opening again costs about as much as keeping a silent device for this long.
constexpr milliseconds kSilenceUntilClose{1000};
constexpr milliseconds kMinNap{20};

milliseconds PlayingTime(std::uint32_t bytes) {
  return milliseconds(std::uint64_t{bytes} * 1000 / kOutputBytesPerSecond);
}

}  // namespace

SdlSoundPlayer::~SdlSoundPlayer() {
  {
    const std::lock_guard lock(mutex_);
    stop_ = true;
  }
  ordered_.notify_one();
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
  ordered_.notify_one();
  if (!playable) return false;
  answered_.wait_for(lock, kAnswerPatience, [this] { return answer_.has_value(); });
  return answer_.value_or(true);
}

void SdlSoundPlayer::Run() {
  AudioDevice device;
  std::unique_lock lock(mutex_);
  while (true) {
    const bool ordered = WaitForOrder(device, lock);
    if (stop_) break;
    cut_off_ = false;
    if (const std::unique_ptr<WaveStream> sound = std::move(next_)) Play(*sound, device, lock);
    if (ordered && device.IsOpen()) continue;
    lock.unlock();
    device.Close();
    lock.lock();
  }
  device.Abandon();
  SDL_TLSCleanup();  // the library forgets only threads of its own making by itself
}

// False when an open device has been silent for long enough to be closed.
bool SdlSoundPlayer::WaitForOrder(const AudioDevice& device, std::unique_lock<std::mutex>& lock) {
  const auto has_order = [this] { return HasOrder(); };
  if (device.IsOpen()) return ordered_.wait_for(lock, kSilenceUntilClose, has_order);
  ordered_.wait(lock, has_order);
  return true;
}

// Feeds the device until the sound has ended or there is another order.
void SdlSoundPlayer::Play(WaveStream& sound, AudioDevice& device, std::unique_lock<std::mutex>& lock) {
  lock.unlock();
  const bool opened = device.Open();
  lock.lock();
  // An order that came meanwhile waits for an answer of its own.
  if (!HasOrder()) answer_ = opened;
  answered_.notify_one();
  if (!opened) return;

  bool more = true;
  while (!HasOrder()) {
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
    ordered_.wait_for(lock, std::max(PlayingTime(more ? queued / 2 : queued), kMinNap), [this] { return HasOrder(); });
  }
  device.Clear();
}

}  // namespace quorvale
