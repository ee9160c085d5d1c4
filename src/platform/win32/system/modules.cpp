#include "platform/win32/system/modules.h"

#include <algorithm>

namespace quorvale {

std::string ProgramPath() {
  constexpr DWORD kLongestPath = 32768;
  std::string path(kLongestPath, '\0');
  path.resize(GetModuleFileNameA(nullptr, path.data(), kLongestPath));
  return path;
}

std::string CommandText() { return std::string(SkipProgram(GetCommandLineA())); }

// The run-time library's argument for WinMain is no help: it takes the bytes of non-ASCII letters in the path for
// blanks.
std::string_view SkipProgram(std::string_view command_line) {
  bool is_quoted = false;
  std::size_t at = 0;
  for (; at < command_line.size(); ++at) {
    if (command_line[at] == '"') is_quoted = !is_quoted;
    if (!is_quoted && (command_line[at] == ' ' || command_line[at] == '\t')) break;
  }
  return command_line.substr(std::min(command_line.find_first_not_of(" \t", at), command_line.size()));
}

LoadedLibrary::LoadedLibrary(const std::string& file, LibraryPlace place)
    : module_(LoadLibraryExA(
          file.c_str(), nullptr,
          LOAD_LIBRARY_SEARCH_SYSTEM32 |
              (place == LibraryPlace::kSystem ? DWORD{0} : DWORD{LOAD_LIBRARY_SEARCH_APPLICATION_DIR}))) {}

LoadedLibrary::~LoadedLibrary() {
  if (module_ != nullptr) FreeLibrary(module_);
}

}  // namespace quorvale
