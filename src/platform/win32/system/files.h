#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "platform/win32/windows_api.h"

namespace quorvale {

// Owns a handle of the kernel: of a file, a process, a thread.
class Handle {
 public:
  Handle() = default;
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() { Close(); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  HANDLE Get() const { return handle_; }
  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
  void Close() {
    if (IsOpen()) CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
  }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

// Whether the path names a file and no directory.
bool IsFile(const std::string& path);

// Opens a plain file. Others may delete it meanwhile. Fails with kNotFound or kUnreadable.
Handle OpenForReading(const std::string& path);

// Reads up to `to.size()` bytes and returns how many. 0 is the end of the file. Fails with kUnreadable.
std::size_t ReadSome(const Handle& file, std::span<std::uint8_t> to, const std::string& path);

// Replaces the content of a file, or makes the file. If it fails, with kUnwritable, the old content stays.
void ReplaceFileContent(const std::string& path, const std::string& content);

}  // namespace quorvale
