#include "platform/win32/system/file_content.h"

#include <algorithm>
#include <array>

#include "platform/win32/system/system_error.h"
#include "platform/win32/toolkit/wide_text.h"

namespace quorvale {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

[[noreturn]] void FailWriting(const std::string& path) {
  throw Failure(FailureNumber::kUnwritable, path + ": " + DescribeError(GetLastError()), "Windows");
}

// A file of a name of its own that is gone with this object unless it has been moved.
class DraftFile {
 public:
  // In the directory of `path`, which ends up there.
  explicit DraftFile(const std::wstring& path) {
    const std::wstring directory = path.substr(0, path.find_last_of(L"\\/:") + 1);
    std::array<wchar_t, MAX_PATH> name{};
    if (GetTempFileNameW(directory.empty() ? L"." : directory.c_str(), L"qvl", 0, name.data()) != 0)
      name_ = name.data();
  }
  ~DraftFile() {
    if (!name_.empty()) DeleteFileW(name_.c_str());
  }
  DraftFile(const DraftFile&) = delete;
  DraftFile& operator=(const DraftFile&) = delete;

  bool Write(const std::string& content) const {
    if (name_.empty()) return false;
    const Handle file(
        CreateFileW(name_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) return false;
    DWORD written = 0;
    // Nothing writes pieces of a whole that was given at once but a full disk.
    return ::WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr) != 0 &&
           written == content.size() && FlushFileBuffers(file.Get()) != 0;
  }

  bool MoveTo(const std::wstring& path) {
    const bool moved =
        MoveFileExW(name_.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    if (moved) name_.clear();
    return moved;
  }

 private:
  std::wstring name_;
};

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

void ReplaceFileContent(const std::string& path, const std::string& content) {
  SetLastError(ERROR_INVALID_NAME);
  if (path.find('\0') != std::string::npos) FailWriting(path);
  const std::wstring wide = ToWide(path);
  DraftFile draft(wide);
  if (!draft.Write(content) || !draft.MoveTo(wide)) FailWriting(path);
}

}  // namespace quorvale
