#include "platform/desktop/system/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
    if (count < 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return fsync(file) == 0;
}

}  // namespace

std::optional<std::string> ReadTextFile(const std::string& path) {
  // Opening a pipe must not wait for who writes into it.
  const FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file.IsOpen()) return errno == ENOENT ? std::optional<std::string>("") : std::nullopt;
  struct stat status {};
  if (fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  std::string text;
  std::array<char, 4096> buffer{};
  while (true) {
    const ssize_t count = read(file.Get(), buffer.data(), buffer.size());
    if (count < 0) return std::nullopt;
    if (count == 0) return text;
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

// Writes a new file beside it and gives that one the name.
bool ReplaceTextFile(const std::string& path, const std::string& text) {
  std::string temporary = path + ".XXXXXX";
  const FileDescriptor file(mkostemp(temporary.data(), O_CLOEXEC));
  if (!file.IsOpen()) return false;
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) fchmod(file.Get(), status.st_mode & 07777);
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
