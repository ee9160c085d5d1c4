#include "platform/desktop/system/text_file.h"

#include <fcntl.h>
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

#include "platform/desktop/system/file_descriptor.h"

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
constexpr mode_t kModeBits = 07777;

// The number that says best why a thing that is no plain file is not read or written.
int NotPlain(mode_t mode) { return S_ISDIR(mode) ? EISDIR : ENOTSUP; }

bool IsLink(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

// Whether that number says that the folder takes no new files, which its old ones need not mind.
bool MeansNoNewFiles(int error) { return error == EACCES || error == EPERM || error == EROFS; }

int WriteInPlace(const std::string& path, std::string_view content) {
  const FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, kNewFileMode));
  if (!file.IsOpen()) return errno;
  const bool is_whole = WriteAll(file.Get(), content) && ftruncate(file.Get(), static_cast<off_t>(content.size())) == 0;
  return is_whole ? 0 : errno;
}

// A name of our own in `folder` for a file that is not whole yet. The file is gone with it unless it has been
// given another name.
class TemporaryName {
 public:
  explicit TemporaryName(const std::string& folder) : path_(folder + ".quorvale-" + std::to_string(getpid()) + ".new") {
    unlink(path_.c_str());  // left by an earlier process of that number
  }
  ~TemporaryName() { unlink(path_.c_str()); }
  TemporaryName(const TemporaryName&) = delete;
  TemporaryName& operator=(const TemporaryName&) = delete;

  const char* Get() const { return path_.c_str(); }

 private:
  std::string path_;
};

}  // namespace

int ReadPlainFile(const std::string& path, std::string& content, std::size_t most) {
  if (path.find('\0') != std::string::npos) return ENOENT;
  // Opening a pipe must not wait for who writes into it.
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
  // A new name for the content would take no notice of a file that is protected.
  if (exists && access(target.c_str(), W_OK) != 0) return errno;
  if (!exists && IsLink(target)) return WriteInPlace(target, content);

  const TemporaryName temporary(target.substr(0, target.rfind('/') + 1));
  const FileDescriptor file(open(temporary.Get(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode));
  if (!file.IsOpen()) return exists && MeansNoNewFiles(errno) ? WriteInPlace(target, content) : errno;
  if (exists) fchmod(file.Get(), status.st_mode & kModeBits);
  const int error = WriteAll(file.Get(), content) ? 0 : errno;
  if (error != 0) return error;
  return std::rename(temporary.Get(), target.c_str()) == 0 ? 0 : errno;
}

std::optional<std::string> ReadTextFile(const std::string& path) {
  std::string text;
  const int error = ReadPlainFile(path, text);
  if (error != 0 && error != ENOENT) return std::nullopt;
  return text;
}

// Writes a new file beside it and gives that one the name.
bool ReplaceTextFile(const std::string& path, const std::string& text) {
  std::string temporary = path + ".XXXXXX";
  const FileDescriptor file(mkostemp(temporary.data(), O_CLOEXEC));
  if (!file.IsOpen()) return false;
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) fchmod(file.Get(), status.st_mode & kModeBits);
  if (WriteAll(file.Get(), text) && std::rename(temporary.c_str(), path.c_str()) == 0) return true;
  unlink(temporary.c_str());
  return false;
}

std::string BehindLinks(const std::string& path) {
  struct Free {
    void operator()(char* text) const { std::free(text); }
  };
  const std::unique_ptr<char, Free> real(realpath(path.c_str(), nullptr));
  return real == nullptr ? path : real.get();
}

}  // namespace quorvale
