#pragma once

#include <unistd.h>

#include <utility>

namespace quorvale {

// Owns an open file of the system.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  // Takes over what open() gave; below 0 is none.
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
  void Close() {
    if (fd_ >= 0) close(std::exchange(fd_, -1));
  }

 private:
  int fd_ = -1;
};

}  // namespace quorvale
