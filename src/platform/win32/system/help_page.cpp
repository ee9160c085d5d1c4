#include "platform/win32/system/help_page.h"

#include "base/failure.h"
#include "platform/win32/system/program_path.h"
#include "platform/win32/windows_api.h"
#include "system/programs.h"

namespace quorvale {
namespace {

constexpr char kContentsPage[] = "index.html";

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('\\') + 1); }

std::string FindHelpFolder(const std::string& file) {
  const std::string beside = FolderOf(file);
  for (const std::string& folder : {FolderOf(ProgramPath()) + "help\\", beside + "Quorvale\\", beside}) {
    if (IsFile(folder + kContentsPage)) return folder;
  }
  throw Failure(FailureNumber::kNotFound, "The help files are not installed", "WinHelp");
}

std::string PageName(std::uint32_t command, std::uintptr_t data) {
  if (command == kHelpContext) return "topic-" + std::to_string(data) + ".html";
  return command == kHelpPartialKey ? "search.html" : kContentsPage;
}

}  // namespace

bool IsFile(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::string HelpFilePath(const std::string& file) {
  const bool is_full = file.starts_with('\\') || file.find(':') != std::string::npos;
  if (is_full) return file;
  std::string directory(MAX_PATH, '\0');
  directory.resize(GetSystemWindowsDirectoryA(directory.data(), static_cast<UINT>(directory.size())));
  return directory + '\\' + file;
}

std::string FindHelpPage(const std::string& file, std::uint32_t command, std::uintptr_t data) {
  const std::string folder = FindHelpFolder(file);
  const std::string page = folder + PageName(command, data);
  return IsFile(page) ? page : folder + kContentsPage;
}

}  // namespace quorvale
