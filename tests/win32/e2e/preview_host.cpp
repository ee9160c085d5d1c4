// Plays the system's screen saver dialog: starts the saver with "/P" and the handle of a window.
//   preview_host desktop PROGRAM   the host is this process's desktop, the only one whose children Wine draws
//   preview_host window PROGRAM    the host is a window of this process
//   preview_host close             sends the close message to the preview in this process's desktop
// The first two read commands from standard input: "close", "destroy" and "quit", which ends the process at once. They
// write what happens to the file named by QUORVALE_HOST_LOG.

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

namespace {

constexpr int kWidth = 152;
constexpr int kHeight = 112;
constexpr wchar_t kPictureClass[] = L"QuorvaleWindow";

void Say(const char* what) {
  static std::ofstream log(std::getenv("QUORVALE_HOST_LOG"));
  log << what << std::endl;
}

HWND MakeWindow() {
  return CreateWindowExW(0, L"STATIC", L"Preview host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, kWidth, kHeight,
                         nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

HANDLE StartPreview(const std::string& program, HWND host) {
  std::string command =
      '"' + program + "\" /P " + std::to_string(static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(host)));
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION started{};
  if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &started) == 0) {
    return nullptr;
  }
  CloseHandle(started.hThread);
  return started.hProcess;
}

DWORD WINAPI ReadCommands(void* thread) {
  std::string command;
  while (std::getline(std::cin, command)) {
    PostThreadMessageW(static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(thread)), WM_APP, command[0], 0);
  }
  return 0;
}

// Runs events until the preview's process has ended.
int RunHost(HWND host, HANDLE preview) {
  auto* const thread = reinterpret_cast<void*>(static_cast<std::uintptr_t>(GetCurrentThreadId()));
  CreateThread(nullptr, 0, ReadCommands, thread, 0, nullptr);
  while (MsgWaitForMultipleObjects(1, &preview, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
      const HWND picture = FindWindowExW(host, nullptr, kPictureClass, nullptr);
      if (message.hwnd != nullptr || message.message != WM_APP) {
        DispatchMessageW(&message);
      } else if (message.wParam == 'c') {
        SendMessageW(picture, WM_CLOSE, 0, 0);
        Say(FindWindowExW(host, nullptr, kPictureClass, nullptr) == nullptr ? "left" : "stayed");
      } else if (message.wParam == 'd') {
        DestroyWindow(host);
        Say("destroyed");
      } else {
        ExitProcess(0);
      }
    }
  }
  DWORD code = 0;
  GetExitCodeProcess(preview, &code);
  Say(("ended " + std::to_string(code)).c_str());
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string what = count > 1 ? arguments[1] : "";
  if (what == "close") {
    SendMessageW(FindWindowExW(GetDesktopWindow(), nullptr, kPictureClass, nullptr), WM_CLOSE, 0, 0);
    return 0;
  }
  if (count < 3) return EXIT_FAILURE;
  const HWND host = what == "desktop" ? GetDesktopWindow() : MakeWindow();
  const HANDLE preview = StartPreview(arguments[2], host);
  if (preview == nullptr) return EXIT_FAILURE;
  Say("started");
  return RunHost(host, preview);
}
