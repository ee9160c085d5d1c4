#pragma once

#include <string>

#include "platform/win32/windows_api.h"

namespace quorvale {

// A search for the entries that a path with wildcards names. It stands at the first one that it finds.
class FileSearch {
 public:
  explicit FileSearch(const std::string& path);
  ~FileSearch();
  FileSearch(const FileSearch&) = delete;
  FileSearch& operator=(const FileSearch&) = delete;

  bool HasEntry() const { return has_entry_; }
  const wchar_t* Name() const { return entry_.cFileName; }
  // Whether a search with that mask of `kAttribute...` bits finds the entry.
  bool IsFoundBy(int attributes) const;
  void Next();

  // Why there is no entry, or no more: a number of the system.
  DWORD Error() const { return error_; }

 private:
  void Take(bool succeeded);

  WIN32_FIND_DATAW entry_{};
  HANDLE search_;
  bool has_entry_ = false;
  DWORD error_ = ERROR_SUCCESS;
};

}  // namespace quorvale
