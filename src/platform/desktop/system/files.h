#pragma once

#include <unistd.h>

#include <optional>
#include <string>
#include <utility>

namespace quorvale {

// Files and directories of Linux. Error numbers are those of errno.

// Owns an open file.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  // Takes ownership of the result of open(). A negative number is no file.
  explicit FileDescriptor(int fd) : fd_(fd) {}
  ~FileDescriptor() { Close(); }

  FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  bool IsOpen() const { return fd_ >= 0; }
  int Get() const { return fd_; }
  // Leaves the file to the caller.
  int Release() { return std::exchange(fd_, -1); }
  void Close() {
    if (fd_ >= 0) close(std::exchange(fd_, -1));
  }

 private:
  int fd_ = -1;
};

// Reads the first `most` bytes of a regular file. Returns 0 or an error number. Pipes and devices fail at once.
int ReadPlainFile(const std::string& path, std::string& content, std::size_t most = std::string::npos);

// The same for a whole file that may be missing, which reads as empty. No value if it can't be read.
std::optional<std::string> ReadTextFile(const std::string& path);

// Creates or replaces a regular file; follows links and keeps the mode. The file has the old or the new content at any
// moment, unless its directory is not writable: then the content is overwritten in place. Returns 0 or an error
// number.
int WritePlainFile(const std::string& path, const std::string& content);

// The same for configuration files, which are never overwritten in place and are the owner's alone when new. True on
// success.
bool ReplaceTextFile(const std::string& path, const std::string& text);

// Directories have no separator at their ends.

// Empty for a user without a home.
std::string HomeDirectory();

// The directory of the settings and of INI files: "quorvale" in $XDG_CONFIG_HOME, by default in ~/.config. It need not
// exist. Empty for a user without a home.
std::string SettingsDirectory();

// Creates a directory and its missing parents for the user alone. True if it exists afterwards.
bool CreateDirectories(const std::string& directory);

}  // namespace quorvale
