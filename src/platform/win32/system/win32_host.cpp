#include "platform/win32/system/win32_host.h"

#include "base/paths.h"
#include "platform/win32/system/modules.h"
#include "platform/win32/windows_api.h"

namespace quorvale {
namespace {

// FILETIME counts steps of 100 nanoseconds.
constexpr std::uint64_t kTicksPerSecond = 10'000'000;
constexpr std::uint64_t kTicksPerDay = kTicksPerSecond * 24 * 60 * 60;

std::uint64_t TicksOf(const FILETIME& time) {
  return static_cast<std::uint64_t>(time.dwHighDateTime) << 32U | time.dwLowDateTime;
}

FILETIME Now() {
  // Windows 7 lacks this function. The other one moves in steps of milliseconds.
  static const auto get_precise =
      FindFunction<void WINAPI(FILETIME*)>(GetModuleHandleW(L"kernel32.dll"), "GetSystemTimePreciseAsFileTime");
  FILETIME now{};
  if (get_precise != nullptr) {
    get_precise(&now);
  } else {
    GetSystemTimeAsFileTime(&now);
  }
  return now;
}

}  // namespace

std::string Win32Host::GetSystemDirectory(std::uint32_t size) {
  std::string directory(size, '\0');
  const UINT length = GetSystemDirectoryA(directory.data(), size);
  // If the buffer is too small, the call returns the size that it needs.
  directory.resize(length < size ? length : 0);
  return directory;
}

std::string Win32Host::ProgramName() {
  const std::string path = ProgramPath();
  const std::string name = path.substr(NameStart(path, "\\"));
  return name.substr(0, name.rfind('.'));
}

std::int32_t Win32Host::PlatformId() {
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof version;
  GetVersionExA(&version);
  return static_cast<std::int32_t>(version.dwPlatformId);
}

void Win32Host::SystemParametersInfo(std::uint32_t action, std::uint32_t parameter) {
  DWORD previous = 0;
  SystemParametersInfoA(action, parameter, &previous, 0);
}

double Win32Host::SecondsSinceMidnight() {
  const FILETIME now = Now();
  FILETIME local{};
  FileTimeToLocalFileTime(&now, &local);
  return static_cast<double>(TicksOf(local) % kTicksPerDay) / static_cast<double>(kTicksPerSecond);
}

std::uint64_t Win32Host::ClockSeed() { return TicksOf(Now()); }

// Runs no destructors: handlers that use the objects are still on the stack. The system frees everything.
void Win32Host::EndProcess() { ExitProcess(0); }

}  // namespace quorvale
