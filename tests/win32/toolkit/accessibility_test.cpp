#include <string>

#include "platform/headless/headless_desktop.h"
#include "platform/win32/system/com.h"
#include "platform/win32/system/system_text.h"
#include "platform/win32/widgets/native_control.h"
#include "support/every_dialog.h"
#include "win32/toolkit/platform_fixture.h"

#include <oleacc.h>

namespace quorvale {
namespace {

std::string TextOf(HWND window) {
  wchar_t text[1000] = {};
  GetWindowTextW(window, text, 1000);
  return FromWide(text);
}

std::string ClassOf(HWND window) {
  wchar_t name[100] = {};
  GetClassNameW(window, name, 100);
  return FromWide(name);
}

// What a screen reader gets from the system.
std::string SystemsName(HWND window) {
  ComPointer<IAccessible> object;
  AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                             reinterpret_cast<void**>(object.Out()));
  VARIANT self{};
  self.vt = VT_I4;
  self.lVal = CHILDID_SELF;
  BSTR name = nullptr;
  object->get_accName(self, &name);
  std::string text = name != nullptr ? FromWide(name) : std::string();
  SysFreeString(name);
  return text;
}

// Wine's service takes no names, so that those which the program gives it are compared with the core's. Of the others
// the system itself must find out the same.
TEST(ScreenReaders, GetTheNameOfEachControl) {
  HeadlessDesktop services;
  NoPictures pictures;
  Win32Platform platform({"Title", PixelKind::kLogical, {}}, pictures);
  Process process{platform, services.Services()};
  VisitDialogs(process, [&](const Form& form) {
    platform.PumpEvents();
    int named = 0;
    for (const auto& [window, name] : NamesToSpeak(reinterpret_cast<HWND>(form.Hwnd()))) {
      const NativeControl& control = *NativeControl::Of(window);
      const bool is_tab_stop = (GetWindowLongW(window, GWL_STYLE) & WS_TABSTOP) != 0;
      const bool is_text = ClassOf(window) == "Static" && !TextOf(window).empty();
      if (IsWindowVisible(window) == 0 || !(is_tab_stop || is_text)) continue;
      const std::string spoken = name.empty() ? SystemsName(window) : FromWide(name);
      EXPECT_EQ(spoken, control.NameToSpeak()) << ClassOf(window);
      EXPECT_NE(spoken, "") << ClassOf(window);
      ++named;
    }
    EXPECT_GE(named, 5) << form.Name();
  });
}

}  // namespace
}  // namespace quorvale
