#include "platform/win32/system/win32_file_system.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/paths.h"
#include "platform/win32/system/files.h"
#include "platform/win32/system/system_text.h"
#include "platform/win32/windows_api.h"
// Needs the header above.
#include <shlwapi.h>

namespace quorvale {
namespace {

// A search for the directory entries that a path with wildcards matches. Starts at the first one.
class FileSearch {
 public:
  explicit FileSearch(const std::string& path) : search_(Begin(path, entry_)) {
    SetState(search_ != INVALID_HANDLE_VALUE);
  }
  ~FileSearch() {
    if (search_ != INVALID_HANDLE_VALUE) FindClose(search_);
  }
  FileSearch(const FileSearch&) = delete;
  FileSearch& operator=(const FileSearch&) = delete;

  bool HasEntry() const { return has_entry_; }
  const wchar_t* Name() const { return entry_.cFileName; }
  // Whether a search with this mask of `kAttribute...` bits includes the entry.
  bool IsIncludedBy(int attributes) const {
    constexpr DWORD kMasked = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_DIRECTORY;
    return (entry_.dwFileAttributes & kMasked & ~static_cast<DWORD>(attributes)) == 0;
  }
  bool IsDirectory() const { return (entry_.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool IsLink() const { return (entry_.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }
  const FILETIME& ModifiedAt() const { return entry_.ftLastWriteTime; }
  void Next() { SetState(FindNextFileW(search_, &entry_) != 0); }

  // The system's error number if there is no entry, or no further one.
  DWORD Error() const { return error_; }

 private:
  // Short names are not returned, but the system still compares them with the pattern.
  static HANDLE Begin(const std::string& path, WIN32_FIND_DATAW& entry) {
    // A NUL would cut the path short, and so name another file.
    if (path.find('\0') != std::string::npos) {
      SetLastError(ERROR_INVALID_NAME);
      return INVALID_HANDLE_VALUE;
    }
    return FindFirstFileExW(ToWide(path).c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr,
                            FIND_FIRST_EX_LARGE_FETCH);
  }

  void SetState(bool succeeded) {
    has_entry_ = succeeded;
    error_ = succeeded ? ERROR_SUCCESS : GetLastError();
  }

  WIN32_FIND_DATAW entry_{};
  HANDLE search_;
  bool has_entry_ = false;
  DWORD error_ = ERROR_SUCCESS;
};

// Nothing found is no failure: the directory has no such entry.
void CheckEnd(const FileSearch& search, const std::string& directory) {
  if (search.Error() == ERROR_NO_MORE_FILES || search.Error() == ERROR_FILE_NOT_FOUND) return;
  throw FileFailure(search.Error(), directory, FailureNumber::kUnreadable);
}

bool IsBefore(const std::wstring& a, const std::wstring& b) {
  return CompareStringOrdinal(a.c_str(), static_cast<int>(a.size()), b.c_str(), static_cast<int>(b.size()), TRUE) ==
         CSTR_LESS_THAN;
}

// NTFS returns names in order, FAT does not.
void Sort(std::vector<std::wstring>& names) {
  if (!std::is_sorted(names.begin(), names.end(), IsBefore)) std::sort(names.begin(), names.end(), IsBefore);
}

std::wstring InCodePage(const std::string& bytes, UINT code_page) {
  const int length = static_cast<int>(bytes.size());
  std::wstring wide(bytes.size(), L'\0');
  const int used = MultiByteToWideChar(code_page, 0, bytes.data(), length, wide.data(), length);
  wide.resize(static_cast<std::size_t>(used));
  return wide;
}

// The code page of programs that do not ask for UTF-8.
UINT OlderCodePage() {
  DWORD code_page = 0;
  GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                 reinterpret_cast<wchar_t*>(&code_page), sizeof code_page / sizeof(wchar_t));
  // Some languages have no such code page.
  constexpr UINT kWesternEuropean = 1252;
  return code_page == 0 || code_page == CP_UTF8 ? kWesternEuropean : code_page;
}

std::int64_t NumberOf(const FILETIME& time) {
  return static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32U | time.dwLowDateTime);
}

std::optional<std::int64_t> DateOf(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  const bool is_cut = path.find('\0') != std::string::npos;
  if (is_cut || GetFileAttributesExW(ToWide(path).c_str(), GetFileExInfoStandard, &data) == 0) return std::nullopt;
  return NumberOf(data.ftLastWriteTime);
}

// The dates by name. Links are left out, since theirs are not those of their files.
std::unordered_map<std::wstring, std::int64_t> DatesIn(const std::string& directory) {
  std::unordered_map<std::wstring, std::int64_t> dates;
  for (FileSearch search(directory + "*"); search.HasEntry(); search.Next()) {
    if (!search.IsLink()) dates.emplace(search.Name(), NumberOf(search.ModifiedAt()));
  }
  return dates;
}

// For a path that ends with a separator, or names a drive: the system's search finds neither.
std::string FindDirectory(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(ToWide(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return {};
  const std::string trimmed = path.substr(0, path.find_last_not_of('\\') + 1);
  return trimmed.empty() || trimmed.back() == ':' ? path : trimmed.substr(NameStart(trimmed, "\\"));
}

}  // namespace

void Win32FileSystem::EnumerateFiles(const std::string& directory, const std::vector<std::string>& patterns,
                                     const std::function<void(const std::string& name)>& found) {
  for (const std::string& pattern : patterns) {
    std::vector<std::wstring> names;
    FileSearch search(directory + pattern);
    for (; search.HasEntry(); search.Next()) {
      if (search.IsIncludedBy(kAttributeNormal)) names.emplace_back(search.Name());
    }
    Sort(names);
    for (const std::wstring& name : names) found(FromWide(name));
    CheckEnd(search, directory);
  }
}

std::vector<std::string> Win32FileSystem::EnumerateFolder(const std::string& directory,
                                                          const std::vector<std::string>& patterns,
                                                          const std::function<void(const std::string& name)>& found) {
  // One search for all: on a network drive each one takes the server a pass over the directory.
  std::vector<std::wstring> wide_patterns;
  wide_patterns.reserve(patterns.size());
  for (const std::string& pattern : patterns) wide_patterns.push_back(ToWide(pattern));
  std::vector<std::vector<std::wstring>> files(patterns.size());
  std::vector<std::wstring> folders;
  FileSearch search(directory + "*");
  for (; search.HasEntry(); search.Next()) {
    const std::wstring_view name = search.Name();
    if (search.IsIncludedBy(kAttributeNormal)) {
      for (std::size_t i = 0; i < files.size(); ++i) {
        if (PathMatchSpecW(search.Name(), wide_patterns[i].c_str()) != FALSE) files[i].emplace_back(name);
      }
    } else if (search.IsDirectory() && search.IsIncludedBy(kAttributeDirectory | kAttributeSystem) && name != L"." &&
               name != L"..") {
      folders.emplace_back(name);
    }
  }
  for (std::vector<std::wstring>& names : files) {
    Sort(names);
    for (const std::wstring& name : names) found(FromWide(name));
  }
  CheckEnd(search, directory);
  Sort(folders);
  std::vector<std::string> names;
  names.reserve(folders.size());
  for (const std::wstring& name : folders) names.push_back(FromWide(name));
  return names;
}

DirectoryId Win32FileSystem::IdOf(const std::string& directory) {
  if (directory.find('\0') != std::string::npos) {
    throw FileFailure(ERROR_INVALID_NAME, directory, FailureNumber::kUnreadable);
  }
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  // The flag opens directories too.
  const Handle opened(
      CreateFileW(ToWide(directory).c_str(), 0, kShared, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION information{};
  if (!opened.IsOpen() || GetFileInformationByHandle(opened.Get(), &information) == 0) {
    throw FileFailure(GetLastError(), directory, FailureNumber::kUnreadable);
  }
  return {.volume = information.dwVolumeSerialNumber,
          .number = std::uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
}

// Asking for each date by itself opens each file. A search of the directory has the dates of all.
std::vector<std::optional<std::int64_t>> Win32FileSystem::DatesOf(const std::vector<std::string>& paths) {
  constexpr std::size_t kFewFiles = 8;
  std::vector<std::optional<std::int64_t>> dates;
  dates.reserve(paths.size());
  while (dates.size() < paths.size()) {
    const std::string& first = paths[dates.size()];
    const std::string directory = first.substr(0, NameStart(first, Syntax()));
    const auto is_elsewhere = [&](const std::string& path) {
      return !path.starts_with(directory) || NameStart(path, Syntax()) != directory.size();
    };
    const auto begin = paths.begin() + static_cast<std::ptrdiff_t>(dates.size());
    const std::span together(begin, std::find_if(begin, paths.end(), is_elsewhere));
    std::unordered_map<std::wstring, std::int64_t> known;
    if (together.size() > kFewFiles) known = DatesIn(directory);
    for (const std::string& path : together) {
      const auto date = known.find(ToWide(path.substr(directory.size())));
      dates.push_back(date != known.end() ? date->second : DateOf(path));
    }
  }
  return dates;
}

std::string Win32FileSystem::FindFile(const std::string& path, int attributes) {
  if (path.ends_with('\\')) return (attributes & kAttributeDirectory) != 0 ? FindDirectory(path) : std::string();
  FileSearch search(path);
  for (; search.HasEntry(); search.Next()) {
    if (search.IsIncludedBy(attributes)) return FromWide(search.Name());
  }
  if (search.Error() != ERROR_NO_MORE_FILES && !MeansMissing(search.Error())) {
    throw FileFailure(search.Error(), path, FailureNumber::kUnreadable);
  }
  return {};
}

std::string Win32FileSystem::GetShortPathName(const std::string& path, std::uint32_t size) {
  std::string result(size, '\0');
  const DWORD length = GetShortPathNameA(path.c_str(), result.data(), size);
  // If the buffer is too small, the call returns the size that it needs.
  result.resize(length < size ? length : 0);
  return result;
}

std::string Win32FileSystem::ReadFile(const std::string& path, std::size_t most) {
  const Handle file = OpenForReading(path);
  constexpr std::size_t kPiece = 65536;
  std::string content;
  std::array<std::uint8_t, kPiece> piece{};
  while (content.size() < most) {
    const std::size_t wanted = std::min(kPiece, most - content.size());
    const std::size_t got = ReadSome(file, std::span(piece).first(wanted), path);
    if (got == 0) break;
    content.append(reinterpret_cast<const char*>(piece.data()), got);
  }
  return content;
}

void Win32FileSystem::WriteFile(const std::string& path, const std::string& content) {
  ReplaceFileContent(path, content);
}

std::string Win32FileSystem::FromOlderCodePage(const std::string& bytes) {
  return FromWide(InCodePage(bytes, OlderCodePage()));
}

bool Win32FileSystem::WritePrivateProfileString(const std::string& section, const std::string& key,
                                                const std::string& value, const std::string& file) {
  return WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), file.c_str()) != 0;
}

}  // namespace quorvale
