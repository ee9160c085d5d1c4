#include "platform/win32/widgets/accessible_names.h"

#include <oleacc.h>

#include "platform/common/deliver.h"
#include "platform/win32/system/com.h"
#include "platform/win32/toolkit/wide_text.h"
#include "platform/win32/widgets/native_control.h"

namespace quorvale {
namespace {

// The names go with the windows.
BOOL CALLBACK Name(HWND window, LPARAM services) {
  const NativeControl* const control = NativeControl::Of(window);
  if (control == nullptr || control->ShowsCaption()) return TRUE;
  Deliver([&] {
    reinterpret_cast<IAccPropServices*>(services)->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT),
                                                                  CHILDID_SELF, PROPID_ACC_NAME,
                                                                  ToWide(control->NameToSpeak()).c_str());
  });
  return TRUE;
}

}  // namespace

void NameControls(HWND dialog) {
  ComPointer<IAccPropServices> services;
  const HRESULT made = CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                        reinterpret_cast<void**>(services.Out()));
  if (SUCCEEDED(made)) EnumChildWindows(dialog, &Name, reinterpret_cast<LPARAM>(services.Get()));
}

}  // namespace quorvale
