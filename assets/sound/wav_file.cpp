#include "sound/wav_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvale::samples {
namespace {

void AppendLittleEndian(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i, value >>= 8U) bytes += static_cast<char>(value & 0xFFU);
}

}  // namespace

std::string WavBytes(const std::vector<float>& levels) {
  constexpr std::uint32_t kSampleBytes = 2, kFormatBytes = 16, kPcm = 1;
  const auto data_bytes = static_cast<std::uint32_t>(levels.size()) * kSampleBytes;
  std::string bytes = "RIFF";
  AppendLittleEndian(bytes, 4 + 8 + kFormatBytes + 8 + data_bytes, 4);
  bytes += "WAVEfmt ";
  AppendLittleEndian(bytes, kFormatBytes, 4);
  AppendLittleEndian(bytes, kPcm, 2);
  AppendLittleEndian(bytes, 1, 2);  // channels
  AppendLittleEndian(bytes, kSoundRate, 4);
  AppendLittleEndian(bytes, kSoundRate * kSampleBytes, 4);
  AppendLittleEndian(bytes, kSampleBytes, 2);
  AppendLittleEndian(bytes, 8 * kSampleBytes, 2);
  bytes += "data";
  AppendLittleEndian(bytes, data_bytes, 4);
  for (const float level : levels) {
    const auto value = static_cast<std::int16_t>(std::lround(std::clamp(level, -1.0F, 1.0F) * 32767));
    AppendLittleEndian(bytes, static_cast<std::uint16_t>(value), 2);
  }
  return bytes;
}

}  // namespace quorvale::samples
