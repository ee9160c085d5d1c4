#include "platform/win32/pictures/decoding_time.h"

#include <memory>
#include <utility>

#include "platform/pictures/rendered_picture.h"
#include "platform/win32/system/files.h"
#include "platform/win32/windows_api.h"
// Needs the header above.
#include <objbase.h>

namespace quorvale {
namespace {

constexpr DWORD kBetweenLooks = 50;  // milliseconds

// Without handling a message, which could unload the form that waits for the picture. A show's window has no title bar;
// what is typed into a dialog does not concern its preview.
bool HasShowKey() {
  const HWND window = GetAncestor(GetFocus(), GA_ROOT);
  return window != nullptr && (GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) != WS_CAPTION &&
         (HIWORD(GetQueueStatus(QS_KEY)) & QS_KEY) != 0;
}

// What a thread does that owns its work.
DWORD WINAPI RunOwned(void* work) {
  const std::unique_ptr<std::function<void()>> own(static_cast<std::function<void()>*>(work));
  const HRESULT joined = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  (*own)();
  // Its components go before the system's.
  *own = nullptr;
  if (SUCCEEDED(joined)) CoUninitialize();
  return 0;
}

}  // namespace

bool DecodingTime::IsLeft() const {
  const auto elapsed = Elapsed();
  if (elapsed > kUnwatched && HasShowKey()) FailLoad("Given up for a key");
  return elapsed < kMost;
}

bool DecodingTime::Run(std::function<void()> work) const {
  auto own = std::make_unique<std::function<void()>>(std::move(work));
  // No std::thread: if one is detached while it ends, the compiler's library frees its record and then writes to it
  // once more. The next thread, which has that record by then, may never run its work.
  const Handle thread(CreateThread(nullptr, 0, RunOwned, own.get(), 0, nullptr));
  if (!thread.IsOpen()) FailLoad("Picture too large");
  static_cast<void>(own.release());  // the thread's
  while (WaitForSingleObject(thread.Get(), kBetweenLooks) != WAIT_OBJECT_0) {
    if (!IsLeft()) return false;
  }
  return true;
}

}  // namespace quorvale
