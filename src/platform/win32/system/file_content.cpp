#include "platform/win32/system/file_content.h"

#include <algorithm>

#include "platform/win32/system/system_error.h"
#include "platform/win32/toolkit/wide_text.h"

namespace quorvale {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

}  // namespace

Handle OpenForReading(const std::string& path) {
  // A NUL would cut the path and so name something else.
  if (path.find('\0') != std::string::npos) throw FileFailure(ERROR_INVALID_NAME, path, FailureNumber::kUnreadable);
  Handle file(CreateFileW(ToWide(path).c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                          FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file.IsOpen()) throw FileFailure(GetLastError(), path, FailureNumber::kUnreadable);
  // Names like "CON" open a device, which might never come to an end.
  if (GetFileType(file.Get()) != FILE_TYPE_DISK) {
    throw Failure(FailureNumber::kUnreadable, path + ": Not a plain file", "Windows");
  }
  return file;
}

std::size_t ReadSome(const Handle& file, std::span<std::uint8_t> to, const std::string& path) {
  constexpr std::size_t kMost = std::size_t{1} << 30U;
  DWORD got = 0;
  if (::ReadFile(file.Get(), to.data(), static_cast<DWORD>(std::min(to.size(), kMost)), &got, nullptr) == 0) {
    throw FileFailure(GetLastError(), path, FailureNumber::kUnreadable);
  }
  return got;
}

}  // namespace quorvale
