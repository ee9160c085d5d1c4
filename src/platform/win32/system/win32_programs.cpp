#include "platform/win32/system/win32_programs.h"

#include <vector>

#include "platform/win32/system/handle.h"
#include "platform/win32/system/help_page.h"
#include "platform/win32/system/system_error.h"
#include "platform/win32/toolkit/wide_text.h"
#include "platform/win32/windows_api.h"
// Behind the header that it builds on.
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

// The strokes that type a character: on the user's keyboard where that has it, else the character as such.
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

// The file of a program that is named without a directory: the system's, or one along the user's path. Left to itself
// the system would look beside this program and in the current directory first.
std::string FindProgram(const std::string& name) {
  std::string places(kLongestPath, '\0');
  places.resize(GetSystemDirectoryA(places.data(), kLongestPath));
  std::string further(kLongestPath, '\0');
  further.resize(GetWindowsDirectoryA(further.data(), kLongestPath));
  places += ';' + further;
  further.resize(kLongestPath);
  further.resize(GetEnvironmentVariableA("PATH", further.data(), kLongestPath));
  places += ';' + further;
  std::string found(kLongestPath, '\0');
  found.resize(SearchPathA(places.c_str(), name.c_str(), ".exe", kLongestPath, found.data(), nullptr));
  return found;
}

std::string ProgramOf(const std::string& command_line) {
  if (command_line.starts_with('"')) return command_line.substr(1, command_line.find('"', 1) - 1);
  return command_line.substr(0, command_line.find_first_of(" \t"));
}

// The shell's numbers below 27 are the system's, the others its own.
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

}  // namespace

void Win32Programs::Start(const std::string& command_line, int window_style) {
  STARTUPINFOA start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  // The styles are the system's own numbers for showing a window.
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
  // By old custom no handle, but a number that says how it went.
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
