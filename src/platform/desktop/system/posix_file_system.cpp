#include "platform/desktop/system/posix_file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "base/failure.h"
#include "base/paths.h"
#include "base/text.h"
#include "platform/desktop/system/directory_listing.h"
#include "platform/desktop/system/files.h"
#include "platform/desktop/system/ini_file.h"

namespace quorvale {
namespace {

struct DirectoryCloser {
  void operator()(DIR* directory) const { closedir(directory); }
};

// Whether the error number means that the path names nothing. A loop of links and a name that is too long do.
bool MeansMissing(int error) { return error == ENOENT || error == ENOTDIR || error == ELOOP || error == ENAMETOOLONG; }

[[noreturn]] void Fail(int error, const std::string& path) {
  throw Failure(MeansMissing(error) ? FailureNumber::kNotFound : FailureNumber::kUnreadable,
                path + ": " + std::strerror(error), "PosixFileSystem");
}

// The type of the file at `path`; links are followed. No value if there is none.
std::optional<mode_t> TypeOf(const std::string& path) {
  // The system would take the part before the NUL, which names something else.
  if (path.find('\0') != std::string::npos) return std::nullopt;
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return status.st_mode & S_IFMT;
  if (!MeansMissing(errno)) Fail(errno, path);
  return std::nullopt;
}

// DT_REG, DT_DIR or another. Links are followed. Only links take a system call, and what file systems that don't keep
// the types have.
int EntryType(int directory, const dirent& entry) {
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return entry.d_type;
  struct stat status {};
  if (fstatat(directory, entry.d_name, &status, 0) != 0) return DT_UNKNOWN;
  return IFTODT(status.st_mode);
}

// Adds the plain files of a directory to `files`, and its sub-folders to `folders` unless that is null.
void ReadDirectory(const std::string& path, DirectoryListing& files, DirectoryListing* folders) {
  if (path.find('\0') != std::string::npos) Fail(ENOENT, path);
  const std::unique_ptr<DIR, DirectoryCloser> opened(opendir(path.c_str()));
  if (opened == nullptr) Fail(errno, path);
  while (true) {
    errno = 0;
    const dirent* const entry = readdir(opened.get());
    if (entry == nullptr) break;
    if (entry->d_name[0] == '.') continue;
    const int type = folders != nullptr ? EntryType(dirfd(opened.get()), *entry) : entry->d_type;
    if (type != DT_DIR) {
      files.Add(entry->d_name, [&] { return type == DT_REG || EntryType(dirfd(opened.get()), *entry) == DT_REG; });
    } else if (folders != nullptr) {
      folders->Add(entry->d_name, [] { return true; });
    }
  }
  if (errno != 0) Fail(errno, path);
}

bool IsHidden(std::string_view name) { return name.starts_with('.') && name != "." && name != ".."; }

std::optional<std::int64_t> DateOf(const std::string& path) {
  constexpr std::int64_t kUnitsPerSecond = 10'000'000;
  constexpr std::int64_t kMostSeconds = std::numeric_limits<std::int64_t>::max() / kUnitsPerSecond - 1;
  struct stat status {};
  if (path.find('\0') != std::string::npos || stat(path.c_str(), &status) != 0) return std::nullopt;
  const auto seconds = std::clamp<std::int64_t>(status.st_mtim.tv_sec, -kMostSeconds, kMostSeconds);
  return seconds * kUnitsPerSecond + status.st_mtim.tv_nsec / 100;
}

bool Exists(const std::string& path) {
  struct stat status {};
  return path.find('\0') == std::string::npos && stat(path.c_str(), &status) == 0;
}

}  // namespace

PosixFileSystem::PosixFileSystem(std::string settings_directory, std::string saver_file, std::function<void()> chosen)
    : settings_directory_(std::move(settings_directory)),
      saver_file_(std::move(saver_file)),
      chosen_(std::move(chosen)) {}

void PosixFileSystem::EnumerateFiles(const std::string& directory, const std::vector<std::string>& patterns,
                                     const std::function<void(const std::string& name)>& found) {
  DirectoryListing files(patterns);
  ReadDirectory(directory, files, nullptr);
  files.Report(found);
}

std::vector<std::string> PosixFileSystem::EnumerateFolder(const std::string& directory,
                                                          const std::vector<std::string>& patterns,
                                                          const std::function<void(const std::string& name)>& found) {
  DirectoryListing files(patterns);
  DirectoryListing folders({"*"});
  ReadDirectory(directory, files, &folders);
  files.Report(found);
  std::vector<std::string> names;
  folders.Report([&names](const std::string& name) { names.push_back(name); });
  return names;
}

DirectoryId PosixFileSystem::IdOf(const std::string& directory) {
  struct stat status {};
  if (directory.find('\0') != std::string::npos) Fail(ENOENT, directory);
  if (stat(directory.c_str(), &status) != 0) Fail(errno, directory);
  return {.volume = status.st_dev, .number = status.st_ino};
}

std::vector<std::optional<std::int64_t>> PosixFileSystem::DatesOf(const std::vector<std::string>& paths) {
  std::vector<std::optional<std::int64_t>> dates;
  dates.reserve(paths.size());
  for (const std::string& path : paths) dates.push_back(DateOf(path));
  return dates;
}

std::string PosixFileSystem::FindFile(const std::string& path, int attributes) {
  const std::optional<mode_t> type = TypeOf(path);
  const bool finds_directories = (attributes & kAttributeDirectory) != 0;
  if (!type || !(S_ISREG(*type) || (S_ISDIR(*type) && finds_directories))) return {};
  const std::size_t end = path.find_last_not_of('/');
  if (end == std::string::npos) return "/";
  const std::string trimmed = path.substr(0, end + 1);
  const std::string name = trimmed.substr(NameStart(trimmed, "/"));
  const bool finds_hidden = (attributes & kAttributeHidden) != 0 || path.ends_with('/');
  return IsHidden(name) && !finds_hidden ? std::string() : name;
}

std::string PosixFileSystem::GetShortPathName(const std::string& path, std::uint32_t size) {
  if (path.size() >= size) return {};
  return IsSaverFile(path) || Exists(path) ? path : std::string();
}

std::string PosixFileSystem::ReadFile(const std::string& path, std::size_t most) {
  std::string content;
  if (const int error = ReadPlainFile(path, content, most)) Fail(error, path);
  return content;
}

void PosixFileSystem::WriteFile(const std::string& path, const std::string& content) {
  const int error = WritePlainFile(path, content);
  if (error == 0) return;
  throw Failure(FailureNumber::kUnwritable, path + ": " + std::strerror(error), "PosixFileSystem");
}

std::string PosixFileSystem::FromOlderCodePage(const std::string& bytes) { return FromCodePage1252(bytes); }

bool PosixFileSystem::WritePrivateProfileString(const std::string& section, const std::string& key,
                                                const std::string& value, const std::string& file) {
  if (chosen_ && section == "boot" && key == "SCRNSAVE.EXE" && IsSaverFile(value)) chosen_();
  if (file.find('/') != std::string::npos) return WriteIniValue(file, section, key, value);
  if (!CreateDirectories(settings_directory_)) return false;
  return WriteIniValue(settings_directory_ + "/" + file, section, key, value);
}

bool PosixFileSystem::IsSaverFile(const std::string& path) const {
  const std::size_t name = NameStart(saver_file_, "/");
  return path.size() == saver_file_.size() && path.compare(0, name, saver_file_, 0, name) == 0 &&
         EqualsIgnoringCase(path, saver_file_);
}

}  // namespace quorvale
