#pragma once

#include <string>

#include "platform/win32/windows_api.h"

namespace quorvale {

// Where a library is looked for: never in the current directory or along the path, where anybody may put one.
enum class LibraryPlace {
  kSystem,
  kSystemOrBesideTheProgram,
};

// A library that a system may have or not.
class LoadedLibrary {
 public:
  explicit LoadedLibrary(const std::string& file, LibraryPlace place = LibraryPlace::kSystem)
      : module_(LoadLibraryExA(
            file.c_str(), nullptr,
            LOAD_LIBRARY_SEARCH_SYSTEM32 |
                (place == LibraryPlace::kSystem ? DWORD{0} : DWORD{LOAD_LIBRARY_SEARCH_APPLICATION_DIR}))) {}
  ~LoadedLibrary() {
    if (module_ != nullptr) FreeLibrary(module_);
  }
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  // Null when the library or the function in it is not there.
  template <typename Function>
  Function* Find(const char* name) const {
    if (module_ == nullptr) return nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

 private:
  HMODULE module_;
};

}  // namespace quorvale
