#include "platform/win32/pictures/decoding_time.h"

#include <memory>
#include <system_error>
#include <thread>
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

}  // namespace

bool DecodingTime::IsLeft() const {
  const auto elapsed = Elapsed();
  if (elapsed > kUnwatched && HasShowKey()) FailLoad("Given up for a key");
  return elapsed < kMost;
}

bool DecodingTime::Run(std::function<void()> work) const {
  const auto done = std::make_shared<Handle>(CreateEventW(nullptr, TRUE, FALSE, nullptr));
  const auto run = [done](std::function<void()> own) {
    const HRESULT joined = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    own();
    // Its components go before the system's.
    own = nullptr;
    if (SUCCEEDED(joined)) CoUninitialize();
    SetEvent(done->Get());
  };
  try {
    std::thread(run, std::move(work)).detach();
  } catch (const std::system_error&) {
    FailLoad("Picture too large");
  }
  while (WaitForSingleObject(done->Get(), kBetweenLooks) != WAIT_OBJECT_0) {
    if (!IsLeft()) return false;
  }
  return true;
}

}  // namespace quorvale
