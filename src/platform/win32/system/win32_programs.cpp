#include "platform/win32/system/win32_programs.h"

#include <vector>

#include "base/paths.h"
#include "platform/common/help_pages.h"
#include "platform/win32/system/files.h"
#include "platform/win32/system/modules.h"
#include "platform/win32/system/system_text.h"
#include "platform/win32/windows_api.h"
// Needs the header above.
#include <shellapi.h>
#undef ShellExecute

namespace quorvale {
namespace {

constexpr DWORD kLongestPath = 32768;

// One press or release of a key.
INPUT KeyStroke(WORD key, WORD character, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = character;
  input.ki.dwFlags = flags;
  return input;
}

// Appends the keys of the user's keyboard layout that type this character, or the character itself if it has none.
void AppendStrokes(wchar_t character, std::vector<INPUT>& strokes) {
  const SHORT found = VkKeyScanW(character);
  const bool has_key = found != -1 && HIBYTE(found) <= 1;
  if (!has_key) {
    for (const DWORD flags : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) {
      strokes.push_back(KeyStroke(0, character, KEYEVENTF_UNICODE | flags));
    }
    return;
  }
  const WORD key = LOBYTE(found);
  const bool is_shifted = HIBYTE(found) == 1;
  if (is_shifted) strokes.push_back(KeyStroke(VK_SHIFT, 0, 0));
  strokes.push_back(KeyStroke(key, 0, 0));
  strokes.push_back(KeyStroke(key, 0, KEYEVENTF_KEYUP));
  if (is_shifted) strokes.push_back(KeyStroke(VK_SHIFT, 0, KEYEVENTF_KEYUP));
}

// Finds a program that is named without a directory in the system's directories and along PATH. CreateProcess by
// itself would first look beside this program and in the current directory, where anybody may put a file.
std::string FindProgram(const std::string& name) {
  std::string places(kLongestPath, '\0');
  places.resize(GetSystemDirectoryA(places.data(), kLongestPath));
  std::string directory(kLongestPath, '\0');
  directory.resize(GetWindowsDirectoryA(directory.data(), kLongestPath));
  places += ';' + directory;
  directory.resize(kLongestPath);
  directory.resize(GetEnvironmentVariableA("PATH", directory.data(), kLongestPath));
  places += ';' + directory;
  std::string found(kLongestPath, '\0');
  found.resize(SearchPathA(places.c_str(), name.c_str(), ".exe", kLongestPath, found.data(), nullptr));
  return found;
}

std::string ProgramOf(const std::string& command_line) {
  if (command_line.starts_with('"')) return command_line.substr(1, command_line.find('"', 1) - 1);
  return command_line.substr(0, command_line.find_first_of(" \t"));
}

// ShellExecute has result numbers of its own besides the system's error numbers.
DWORD ShellError(std::intptr_t number) {
  switch (number) {
    case 0:
      return ERROR_OUTOFMEMORY;
    case SE_ERR_ASSOCINCOMPLETE:
    case SE_ERR_NOASSOC:
      return ERROR_NO_ASSOCIATION;
    case SE_ERR_DDETIMEOUT:
    case SE_ERR_DDEFAIL:
    case SE_ERR_DDEBUSY:
      return ERROR_DDE_FAIL;
    case SE_ERR_DLLNOTFOUND:
      return ERROR_DLL_NOT_FOUND;
    default:
      return static_cast<DWORD>(number);
  }
}

std::string FolderOf(const std::string& path) { return path.substr(0, NameStart(path, "\\")); }

}  // namespace

std::string HelpFilePath(const std::string& file) {
  const bool is_full = file.starts_with('\\') || file.find(':') != std::string::npos;
  if (is_full) return file;
  std::string directory(MAX_PATH, '\0');
  directory.resize(GetSystemWindowsDirectoryA(directory.data(), static_cast<UINT>(directory.size())));
  return directory + '\\' + file;
}

std::string FindHelpPage(const std::string& file, std::uint32_t command, std::uintptr_t data) {
  const std::string beside = FolderOf(file);
  return FindHelpPage({FolderOf(ProgramPath()) + "help\\", beside + "Quorvale\\", beside}, IsFile, command, data);
}

void Win32Programs::Start(const std::string& command_line, int window_style) {
  STARTUPINFOA start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  // The values of `window_style` are those of ShowWindow.
  start.wShowWindow = static_cast<WORD>(window_style);
  PROCESS_INFORMATION process{};
  std::string line = command_line;
  const std::string program = ProgramOf(line);
  const bool has_directory = program.find_first_of("\\/:") != std::string::npos;
  const std::string file = has_directory ? std::string() : FindProgram(program);
  if (!has_directory && file.empty()) throw FileFailure(ERROR_FILE_NOT_FOUND, line, FailureNumber::kNotFound);
  if (CreateProcessA(has_directory ? nullptr : file.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &start, &process) == 0) {
    throw FileFailure(GetLastError(), command_line, FailureNumber::kNotFound);
  }
  const Handle thread(process.hThread);
  const Handle started(process.hProcess);
}

void Win32Programs::OpenDisplaySettings() {
  Start("rundll32.exe shell32.dll,Control_RunDLL desk.cpl,,1", kWindowMinimisedFocus);
}

std::string Win32Programs::SystemInformationTool() {
  std::string directory(MAX_PATH, '\0');
  directory.resize(GetSystemDirectoryA(directory.data(), static_cast<UINT>(directory.size())));
  const std::string tool = directory + "\\msinfo32.exe";
  return IsFile(tool) ? '"' + tool + '"' : std::string();
}

void Win32Programs::ShellExecute(const std::string& verb, const std::string& target, int show_command) {
  const HINSTANCE result = ShellExecuteA(nullptr, verb.c_str(), target.c_str(), nullptr, nullptr, show_command);
  // Not a handle: values up to 32 are errors.
  constexpr std::intptr_t kLastError = 32;
  const auto number = reinterpret_cast<std::intptr_t>(result);
  if (number <= kLastError) throw FileFailure(ShellError(number), target, FailureNumber::kNotFound);
}

void Win32Programs::WinHelp(WindowHandle owner, const std::string& file, std::uint32_t command, std::uintptr_t data) {
  const std::string path = HelpFilePath(file);
  if (IsFile(path)) {
    WinHelpA(reinterpret_cast<HWND>(owner), path.c_str(), command, data);
  } else {
    ShellExecute("open", FindHelpPage(path, command, data), kWindowNormalFocus);
  }
}

void Win32Programs::SendKeys(const std::string& keys) {
  std::vector<INPUT> strokes;
  for (const wchar_t character : ToWide(keys)) AppendStrokes(character, strokes);
  SendInput(static_cast<UINT>(strokes.size()), strokes.data(), sizeof(INPUT));
}

}  // namespace quorvale
