#include "platform/win32/system/program_path.h"

#include "platform/win32/windows_api.h"

namespace quorvale {

std::string ProgramPath() {
  constexpr DWORD kLongestPath = 32768;
  std::string path(kLongestPath, '\0');
  path.resize(GetModuleFileNameA(nullptr, path.data(), kLongestPath));
  return path;
}

}  // namespace quorvale
