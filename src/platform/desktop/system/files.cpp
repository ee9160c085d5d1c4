#include "platform/desktop/system/files.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "base/paths.h"

namespace quorvale {
namespace {

bool WriteAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(file, text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return fsync(file) == 0;
}

constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kOwnersFileMode = 0600;
constexpr mode_t kModeBits = 07777;

// The error number for something that is not a regular file.
int NotPlain(mode_t mode) { return S_ISDIR(mode) ? EISDIR : ENOTSUP; }

bool IsLink(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

// The end of a chain of links, so that the file is replaced and not the link.
std::string BehindLinks(const std::string& path) {
  struct Free {
    void operator()(char* text) const { std::free(text); }
  };
  const std::unique_ptr<char, Free> real(realpath(path.c_str(), nullptr));
  return real == nullptr ? path : real.get();
}

// Whether the error means that the directory takes no new files. Its existing files may still be writable.
bool MeansNoNewFiles(int error) { return error == EACCES || error == EPERM || error == EROFS; }

int WriteInPlace(const std::string& path, std::string_view content) {
  const FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, kNewFileMode));
  if (!file.IsOpen()) return errno;
  const bool is_whole = WriteAll(file.Get(), content) && ftruncate(file.Get(), static_cast<off_t>(content.size())) == 0;
  return is_whole ? 0 : errno;
}

// A name in `directory` for a file that is not complete yet. The destructor deletes the file unless it has been
// renamed.
class TemporaryName {
 public:
  explicit TemporaryName(std::string_view directory)
      : path_(std::string(directory) + ".quorvale-" + std::to_string(getpid()) + ".new") {
    unlink(path_.c_str());  // left by an earlier process of that number
  }
  ~TemporaryName() { unlink(path_.c_str()); }
  TemporaryName(const TemporaryName&) = delete;
  TemporaryName& operator=(const TemporaryName&) = delete;

  const char* Get() const { return path_.c_str(); }

 private:
  std::string path_;
};

// Writes a new file in the same directory and renames it. `path` is not a link. Returns 0 or an error number.
int ReplaceFile(const std::string& path, std::string_view content, mode_t new_file_mode) {
  const TemporaryName temporary(std::string_view(path).substr(0, NameStart(path, "/")));
  const FileDescriptor file(open(temporary.Get(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, new_file_mode));
  if (!file.IsOpen()) return errno;
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) fchmod(file.Get(), status.st_mode & kModeBits);
  return WriteAll(file.Get(), content) && std::rename(temporary.Get(), path.c_str()) == 0 ? 0 : errno;
}

// An environment variable's path. A relative one depends on the working directory, so it counts as none.
std::string AbsolutePathFrom(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && value[0] == '/' ? value : "";
}

}  // namespace

int ReadPlainFile(const std::string& path, std::string& content, std::size_t most) {
  if (path.find('\0') != std::string::npos) return ENOENT;
  // Without O_NONBLOCK, opening a pipe waits for a writer.
  const FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file.IsOpen()) return errno;
  struct stat status {};
  if (fstat(file.Get(), &status) != 0) return errno;
  if (!S_ISREG(status.st_mode)) return NotPlain(status.st_mode);
  content.clear();
  content.reserve(std::min(static_cast<std::size_t>(status.st_size), most));
  std::array<char, 65536> buffer{};
  while (content.size() < most) {
    const ssize_t count = read(file.Get(), buffer.data(), std::min(buffer.size(), most - content.size()));
    if (count < 0) return errno;
    if (count == 0) break;
    content.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return 0;
}

int WritePlainFile(const std::string& path, const std::string& content) {
  if (path.find('\0') != std::string::npos) return ENOENT;
  const std::string target = BehindLinks(path);
  struct stat status {};
  const bool exists = stat(target.c_str(), &status) == 0;
  if (exists && !S_ISREG(status.st_mode)) return NotPlain(status.st_mode);
  // Renaming would replace a write-protected file too.
  if (exists && access(target.c_str(), W_OK) != 0) return errno;
  // A link to a missing file keeps pointing to it.
  if (!exists && IsLink(target)) return WriteInPlace(target, content);
  const int error = ReplaceFile(target, content, kNewFileMode);
  return exists && MeansNoNewFiles(error) ? WriteInPlace(target, content) : error;
}

bool ReplaceTextFile(const std::string& path, const std::string& text) {
  return ReplaceFile(BehindLinks(path), text, kOwnersFileMode) == 0;
}

std::optional<std::string> ReadTextFile(const std::string& path) {
  std::string text;
  const int error = ReadPlainFile(path, text);
  if (error != 0 && error != ENOENT) return std::nullopt;
  return text;
}

std::string HomeDirectory() {
  std::string home = AbsolutePathFrom("HOME");
  if (!home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
}

std::string SettingsDirectory() {
  std::string base = AbsolutePathFrom("XDG_CONFIG_HOME");
  if (base.empty()) {
    base = HomeDirectory();
    if (base.empty()) return {};
    base += "/.config";
  }
  return base + "/quorvale";
}

bool CreateDirectories(const std::string& directory) {
  for (std::size_t end = directory.find('/', 1); end != std::string::npos; end = directory.find('/', end + 1)) {
    mkdir(directory.substr(0, end).c_str(), S_IRWXU);
  }
  mkdir(directory.c_str(), S_IRWXU);
  struct stat status {};
  return stat(directory.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace quorvale
