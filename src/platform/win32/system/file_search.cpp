#include "platform/win32/system/file_search.h"

#include "platform/win32/toolkit/wide_text.h"
#include "system/file_system.h"

namespace quorvale {
namespace {

// The names' short forms take part in the match all the same, but need not be given.
HANDLE Begin(const std::string& path, WIN32_FIND_DATAW& entry) {
  // A NUL would cut the path and so name something else.
  if (path.find('\0') != std::string::npos) {
    SetLastError(ERROR_INVALID_NAME);
    return INVALID_HANDLE_VALUE;
  }
  return FindFirstFileExW(ToWide(path).c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr,
                          FIND_FIRST_EX_LARGE_FETCH);
}

}  // namespace

FileSearch::FileSearch(const std::string& path) : search_(Begin(path, entry_)) {
  Take(search_ != INVALID_HANDLE_VALUE);
}

FileSearch::~FileSearch() {
  if (search_ != INVALID_HANDLE_VALUE) FindClose(search_);
}

bool FileSearch::IsFoundBy(int attributes) const {
  constexpr DWORD kLookedAt = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_DIRECTORY;
  return (entry_.dwFileAttributes & kLookedAt & ~static_cast<DWORD>(attributes)) == 0;
}

void FileSearch::Next() { Take(FindNextFileW(search_, &entry_) != 0); }

void FileSearch::Take(bool succeeded) {
  has_entry_ = succeeded;
  error_ = succeeded ? ERROR_SUCCESS : GetLastError();
}

}  // namespace quorvale
