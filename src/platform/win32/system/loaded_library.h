#pragma once

#include <string>

#include "platform/win32/windows_api.h"

namespace quorvale {

// A library that a system may have or not. It is looked for beside the program and in the system directory,
// nowhere else: what lies in the current directory is anybody's.
class LoadedLibrary {
 public:
  explicit LoadedLibrary(const std::string& file)
      : module_(LoadLibraryExA(file.c_str(), nullptr,
                               LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32)) {}
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
