#include <SDL_audio.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "desktop/sound_samples.h"
#include "desktop/temporary_directory.h"
#include "platform/desktop/system/sdl_sound_player.h"

namespace quorvale {
namespace {

constexpr std::uint32_t kFlags = kSndFilename | kSndAsync | kSndNoDefault;
constexpr int kRate = 44'100;
constexpr std::uint64_t kHugeSize = 600'000'000;

std::string Pcm16(int level, int frames) { return WaveWriter::Repeat(WaveWriter::Little(level, 2), frames); }

// A steady level, so that every frame of it can be told from silence and from other sounds.
WaveWriter Steady(int level, int frames) {
  WaveWriter wave;
  wave.Format(1, 1, kRate, 2, 16).Chunk("data", Pcm16(level, frames));
  return wave;
}

class SoundTest : public testing::Test {
 protected:
  // A player leaves its device open to the end of the process; the next test wants one of its own.
  void TearDown() override { SDL_AudioQuit(); }

  std::string Path(const std::string& name) const { return directory_.Path(name); }

  TemporaryDirectory directory_;
};

class PlayingTest : public SoundTest {
 protected:
  void TearDown() override {
    capture_.Close();
    SoundTest::TearDown();
  }

  // The number of frames near that level up to a second of silence behind the last one that is expected. The
  // device runs far ahead of the clock, so that silence between may be a player that had no time to feed it.
  int FramesOf(int level, int expected, int tolerance = 8) {
    int frames = 0;
    int silent = 0;
    while (silent < (frames < expected ? 120 : 1) * kRate) {
      const auto frame = capture_.NextFrame();
      if (!frame) break;
      if (std::abs(*frame - level) <= tolerance) ++frames;
      silent = *frame == 0 ? silent + 1 : 0;
    }
    return frames;
  }

  // Reads past silence to the first frame of a sound, and returns its level.
  int FirstSound() {
    while (const auto frame = capture_.NextFrame()) {
      if (*frame != 0) return *frame;
    }
    return 0;
  }

  SoundCapture capture_{Path("device")};
};

struct FormatCase {
  const char* name;
  int coding;
  int block;
  int bits;
  std::string extension;  // of the format chunk
  std::string bytes;      // of one block
  int frames_per_block;
  int level;  // what comes out, of 16 bits
};

std::string MicrosoftExtension() {
  std::string text = WaveWriter::Little(32, 2) + WaveWriter::Little(500, 2) + WaveWriter::Little(7, 2);
  for (const int c : {256, 0, 512, -256, 0, 0, 192, 64, 240, 0, 460, -208, 392, -232}) {
    text += WaveWriter::Little(static_cast<std::uint64_t>(c), 2);
  }
  return text;
}

TEST_F(PlayingTest, EveryFrameOfEveryFormatComesOut) {
  const auto little = WaveWriter::Little;
  const std::string no_steps(252, '\0');
  const std::vector<FormatCase> cases = {
      {"8 bits", 1, 1, 8, "", "\xC0", 1, 16384},
      {"16 bits", 1, 2, 16, "", little(16384, 2), 1, 16384},
      {"24 bits", 1, 3, 24, "", little(0x400000, 3), 1, 16384},
      {"32 bits", 1, 4, 32, "", little(0x40000000, 4), 1, 16384},
      {"float", 3, 4, 32, "", little(0x3F000000, 4), 1, 16384},
      {"A-law", 6, 1, 8, "", "\xAA", 1, 32256},
      {"mu-law", 7, 1, 8, "", "\x80", 1, 32124},
      {"extensible", 0xFFFE, 2, 16,
       little(22, 2) + little(16, 2) + little(4, 4) + little(1, 4) + little(0x100000, 4) +
           little(0x719B3800AA000080, 8),
       little(16384, 2), 1, 16384},
      {"IMA ADPCM", 0x11, 256, 4, little(2, 2) + little(505, 2), little(16384, 4) + no_steps, 505, 16384},
      {"Microsoft ADPCM", 2, 256, 4, MicrosoftExtension(),
       little(0, 1) + little(16, 2) + little(16384, 2) + little(16384, 2) + no_steps.substr(3), 500, 16384},
  };
  SdlSoundPlayer player;
  for (const FormatCase& c : cases) {
    SCOPED_TRACE(c.name);
    const int blocks = 30'000 / c.frames_per_block;  // longer than one piece
    WaveWriter wave;
    wave.Format(c.coding, 1, kRate, c.block, c.bits, c.extension).Chunk("data", WaveWriter::Repeat(c.bytes, blocks));
    wave.Save(Path("sound.wav"));
    ASSERT_TRUE(player.PlaySound(Path("sound.wav"), kFlags));
    const int frames = blocks * c.frames_per_block;
    EXPECT_EQ(FramesOf(c.level, frames), frames);
  }
}

TEST_F(PlayingTest, OtherRatesKeepTheirLength) {
  SdlSoundPlayer player;
  for (const int rate : {8000, 22'050, 48'000, 96'000}) {
    SCOPED_TRACE(rate);
    WaveWriter wave;
    wave.Format(1, 2, rate, 4, 16).Chunk("data", Pcm16(16384, rate));  // half a second of both channels
    wave.Save(Path("sound.wav"));
    ASSERT_TRUE(player.PlaySound(Path("sound.wav"), kFlags));
    // The change of rate swings a little at both ends.
    EXPECT_NEAR(FramesOf(16384, kRate / 2 - 20, 8000), kRate * 0.5, 20);
  }
}

TEST_F(PlayingTest, SizesThatReachPastTheEndPlayWhatIsThere) {
  WaveWriter wave;
  wave.Chunk("LIST", "odd").Format(1, 1, kRate, 2, 16).Chunk("data", Pcm16(5000, 4000) + "x", 0xFFFFFFFF);
  wave.Save(Path("sound.wav"));
  SdlSoundPlayer player;
  ASSERT_TRUE(player.PlaySound(Path("sound.wav"), kFlags));
  EXPECT_EQ(FramesOf(5000, 4000), 4000);
}

TEST_F(PlayingTest, ANewSoundStopsTheCurrentEvenIfInvalid) {
  Steady(5000, 60 * kRate).Save(Path("long.wav"));
  Steady(-9000, 3000).Save(Path("short.wav"));
  capture_.RunInRealTime();
  SdlSoundPlayer player;
  ASSERT_TRUE(player.PlaySound(Path("long.wav"), kFlags));
  EXPECT_EQ(FirstSound(), 5000);
  ASSERT_TRUE(player.PlaySound(Path("short.wav"), kFlags));
  int old_frames = 0;
  for (auto frame = capture_.NextFrame(); frame && *frame != -9000; frame = capture_.NextFrame()) ++old_frames;
  EXPECT_LT(old_frames, kRate);  // of two seconds that were queued
  EXPECT_EQ(FramesOf(-9000, 2999), 2999);
  ASSERT_TRUE(player.PlaySound(Path("long.wav"), kFlags));
  EXPECT_EQ(FirstSound(), 5000);
  EXPECT_FALSE(player.PlaySound(Path("missing.wav"), kFlags));
  EXPECT_LT(FramesOf(5000, 0), kRate);
}

std::size_t Threads() {
  using Iterator = std::filesystem::directory_iterator;
  return static_cast<std::size_t>(std::distance(Iterator("/proc/self/task"), Iterator()));
}

// An open device keeps its threads waking, silent or not.
TEST_F(PlayingTest, TheDeviceIsClosedInSilenceAndOpenedAgain) {
  Steady(5000, 1000).Save(Path("sound.wav"));
  const std::size_t before = Threads();
  SdlSoundPlayer player;
  for (int round = 0; round < 2; ++round) {
    ASSERT_TRUE(player.PlaySound(Path("sound.wav"), kFlags));
    EXPECT_EQ(FramesOf(5000, 1000), 1000);
    while (capture_.NextFrame()) {
    }
    EXPECT_EQ(Threads(), before + 1);  // the player's own, asleep
  }
}

long PeakMemoryKb() {
  std::ifstream status("/proc/self/status");
  std::string word;
  long value = 0;
  while (status >> word) {
    if (word == "VmHWM:" && status >> value) break;
  }
  return value;
}

TEST_F(PlayingTest, AHugeFileIsStreamedInLittleMemory) {
  WaveWriter wave;
  wave.Format(1, 2, kRate, 4, 16).Chunk("data", Pcm16(5000, 2 * 1000), kHugeSize);
  wave.Save(Path("huge.wav"));
  std::filesystem::resize_file(Path("huge.wav"), kHugeSize);
  {
    std::fstream file(Path("huge.wav"), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(std::streamoff{3} * kRate * 4);  // seconds later than what is read at the start
    file << Pcm16(-9000, 2 * 1000);
  }
  std::ofstream("/proc/self/clear_refs") << "5";
  const long before = PeakMemoryKb();

  SdlSoundPlayer player;
  ASSERT_TRUE(player.PlaySound(Path("huge.wav"), kFlags));
  EXPECT_EQ(FirstSound(), 5000);
  EXPECT_EQ(FramesOf(-9000, 1000), 1000);
  EXPECT_LT(PeakMemoryKb() - before, 20'000);
}

TEST_F(SoundTest, RejectsInvalidFiles) {
  setenv("SDL_AUDIODRIVER", "dummy", 1);
  const std::string riff = Steady(5000, 1000).Bytes();
  const std::string data = Pcm16(5000, 1000);
  const std::pair<const char*, std::string> cases[] = {
      {"empty", ""},
      {"text", std::string(5000, 'x')},
      {"cut in the format", riff.substr(0, 30)},
      {"cut before the data", riff.substr(0, 44)},
      {"other kind of RIFF", "RIFF" + WaveWriter::Little(100, 4) + "AVI " + riff.substr(12)},
      {"no format", WaveWriter().Chunk("data", data).Bytes()},
      {"format after the data", WaveWriter().Chunk("data", data).Format(1, 1, kRate, 2, 16).Bytes()},
      {"format too short", WaveWriter().Chunk("fmt ", "abc").Chunk("data", data).Bytes()},
      {"format that claims gigabytes", WaveWriter().Chunk("fmt ", "abc", 0xFFFFFFF0).Chunk("data", data).Bytes()},
      {"chunk that claims gigabytes", WaveWriter().Chunk("LIST", "", 0xFFFFFFFF).Chunk("data", data).Bytes()},
      {"chunks without end", "RIFF" + WaveWriter::Little(0, 4) + "WAVE" + std::string(8'000'000, '\0')},
      {"no channels", WaveWriter().Format(1, 0, kRate, 2, 16).Chunk("data", data).Bytes()},
      {"hundreds of channels", WaveWriter().Format(1, 300, kRate, 600, 16).Chunk("data", data).Bytes()},
      {"rate of 0", WaveWriter().Format(1, 1, 0, 2, 16).Chunk("data", data).Bytes()},
      {"rate of 1", WaveWriter().Format(1, 1, 1, 2, 16).Chunk("data", data).Bytes()},
      {"blocks of 0", WaveWriter().Format(1, 1, kRate, 0, 16).Chunk("data", data).Bytes()},
      {"samples of 13 bits", WaveWriter().Format(1, 1, kRate, 2, 13).Chunk("data", data).Bytes()},
      {"unknown coding", WaveWriter().Format(0x31, 1, kRate, 65, 0).Chunk("data", data).Bytes()},
  };
  SdlSoundPlayer player;
  for (const auto& [name, bytes] : cases) {
    directory_.Write("sound.wav", bytes);
    EXPECT_FALSE(player.PlaySound(Path("sound.wav"), kFlags)) << name;
  }

  mkfifo(Path("pipe").c_str(), S_IRUSR | S_IWUSR);
  for (const std::string& path :
       {Path("pipe"), directory_.Path(), Path("missing"), std::string("/dev/zero"), std::string()}) {
    EXPECT_FALSE(player.PlaySound(path, kFlags)) << path;
  }
}

TEST_F(SoundTest, AMachineWithoutADeviceIsSilent) {
  setenv("SDL_AUDIODRIVER", "none such", 1);
  Steady(5000, 1000).Save(Path("sound.wav"));
  SdlSoundPlayer player;
  // On a busy machine an answer may come too late, and then the sound counts as played.
  bool refused = false;
  for (int i = 0; i < 20 && !refused; ++i) refused = !player.PlaySound(Path("sound.wav"), kFlags);
  EXPECT_TRUE(refused);
}

}  // namespace
}  // namespace quorvale
