#pragma once

#include <string>
#include <string_view>

#include "platform/win32/windows_api.h"

namespace quorvale {

// The running program's file, as a full path.
std::string ProgramPath();

// The program's own command line, without its path.
std::string CommandText();

// The part of a whole command line behind the program's path, which may be in quotes.
std::string_view SkipProgram(std::string_view command_line);

// A function of a library that this process has loaded. Null if the library or the function is missing.
template <typename Function>
Function* FindFunction(HMODULE module, const char* name) {
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

// Where a library may lie. The current directory and the path are never searched: other users may write there.
enum class LibraryPlace {
  kSystem,
  kSystemOrBesideTheProgram,
};

// A library that may be missing on some systems. Unloaded with the object.
class LoadedLibrary {
 public:
  explicit LoadedLibrary(const std::string& file, LibraryPlace place = LibraryPlace::kSystem);
  ~LoadedLibrary();
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  // Null if the library or the function is missing.
  template <typename Function>
  Function* Find(const char* name) const {
    return FindFunction<Function>(module_, name);
  }

 private:
  HMODULE module_;
};

}  // namespace quorvale
