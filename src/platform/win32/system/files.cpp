#include "platform/win32/system/files.h"

#include <algorithm>
#include <filesystem>
#include <string>

#include "platform/win32/system/system_text.h"

namespace quorvale {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

[[noreturn]] void FailWriting(const std::string& path) {
  throw Failure(FailureNumber::kUnwritable, path + ": " + DescribeError(GetLastError()), "Windows");
}

bool WriteAll(const Handle& file, const std::string& content) {
  DWORD written = 0;
  // A short write means that the disk is full.
  return ::WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr) != 0 &&
         written == content.size() && FlushFileBuffers(file.Get()) != 0;
}

Handle OpenForWriting(const std::wstring& path, DWORD creation) {
  return Handle(CreateFileW(path.c_str(), GENERIC_WRITE, kShareAll, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool WriteInPlace(const std::wstring& path, const std::string& content) {
  const Handle file = OpenForWriting(path, OPEN_ALWAYS);
  return file.IsOpen() && WriteAll(file, content) && SetEndOfFile(file.Get()) != 0;
}

// The target of a symbolic link. Any other path is returned as it is.
std::wstring BehindLinks(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return path;
  const Handle file(CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!file.IsOpen()) return path;
  std::wstring target(GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
  const auto room = static_cast<DWORD>(target.size());
  target.resize(GetFinalPathNameByHandleW(file.Get(), target.data(), room, FILE_NAME_NORMALIZED));
  return target.empty() ? path : target;
}

// A temporary file beside `path`, deleted with this object unless `MoveTo` has moved it.
class DraftFile {
 public:
  explicit DraftFile(const std::wstring& path)
      : name_(std::filesystem::path(path).replace_filename(L".quorvale-" + std::to_wstring(GetCurrentProcessId()) +
                                                           L".new")),
        file_(OpenNew(name_)) {}
  ~DraftFile() {
    const bool is_ours = file_.IsOpen();
    file_.Close();
    if (is_ours) DeleteFileW(name_.c_str());
  }
  DraftFile(const DraftFile&) = delete;
  DraftFile& operator=(const DraftFile&) = delete;

  bool IsOpen() const { return file_.IsOpen(); }
  bool Write(const std::string& content) const { return WriteAll(file_, content); }
  bool MoveTo(const std::wstring& path) {
    file_.Close();
    return MoveFileExW(name_.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0 ||
           Discard();
  }

 private:
  // An earlier process with the same number may have left its file.
  static Handle OpenNew(const std::wstring& name) {
    DeleteFileW(name.c_str());
    return OpenForWriting(name, CREATE_NEW);
  }

  // Keeps the error of the failed move.
  bool Discard() const {
    const DWORD error = GetLastError();
    DeleteFileW(name_.c_str());
    SetLastError(error);
    return false;
  }

  std::wstring name_;
  Handle file_;
};

}  // namespace

bool IsFile(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

Handle OpenForReading(const std::string& path) {
  // A NUL would cut the path short, and so name another file.
  if (path.find('\0') != std::string::npos) throw FileFailure(ERROR_INVALID_NAME, path, FailureNumber::kUnreadable);
  Handle file(CreateFileW(ToWide(path).c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                          FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file.IsOpen()) throw FileFailure(GetLastError(), path, FailureNumber::kUnreadable);
  // Names like "CON" open a device, and reading from it might never end.
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
  const std::wstring target = BehindLinks(ToWide(path));
  const DWORD attributes = GetFileAttributesW(target.c_str());
  const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
  // Replacing the file would ignore that it is read-only.
  if (exists && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    SetLastError(ERROR_ACCESS_DENIED);
    FailWriting(path);
  }
  if (exists && !OpenForWriting(target, OPEN_EXISTING).IsOpen()) FailWriting(path);
  const bool is_dangling_link = exists && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  DraftFile draft(target);
  if (is_dangling_link || (exists && !draft.IsOpen())) {
    // Where no new file may be created, an old one may still be writable.
    if (!WriteInPlace(target, content)) FailWriting(path);
  } else if (!draft.IsOpen() || !draft.Write(content) || !draft.MoveTo(target)) {
    FailWriting(path);
  }
}

}  // namespace quorvale
