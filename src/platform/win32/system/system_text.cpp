#include "platform/win32/system/system_text.h"

#include <array>

#include "platform/win32/windows_api.h"

namespace quorvale {

std::string DescribeError(std::uint32_t error) {
  std::array<char, 512> text{};
  const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                      text.data(), static_cast<DWORD>(text.size()), nullptr);
  const std::string words(text.data(), length);
  if (words.empty()) return "Error " + std::to_string(error);
  return words.substr(0, words.find_last_not_of("\r\n ") + 1);
}

bool MeansMissing(std::uint32_t error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY:
    case ERROR_FILENAME_EXCED_RANGE:
      return true;
    default:
      return false;
  }
}

Failure FileFailure(std::uint32_t error, const std::string& path, FailureNumber otherwise) {
  return {MeansMissing(error) ? FailureNumber::kNotFound : otherwise, path + ": " + DescribeError(error), "Windows"};
}

}  // namespace quorvale
