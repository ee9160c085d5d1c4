#include "saver/control_form.h"

#include "process/process.h"
#include "show/show_form.h"
#include "show/slide_tick.h"
#include "system/window_system.h"

namespace quorvale {
namespace {

constexpr float kFontPoints = 4.2F;

}  // namespace

ControlForm::ControlForm(Process& process)
    : ShowForm(process, "ControlForm", WindowKind::kHidden, "Screen Preview Pallete", {"Small Fonts", kFontPoints}),
      Msghook1(*this, "Msghook1") {
  Msghook1.Message = [this](int message) { Msghook1_Message(message); };
}

void ControlForm::Form_Load() {
  WindowSystem& windows = process_.system.windows;
  const WindowHandle host = ToWindowHandle(process_.SystemHwnd);
  Msghook1.SetHwnd(PicBase.Hwnd());
  Msghook1.Report(kWmClose);
  windows.GetClientRect(host, process_.show.PreviewRect);
  const ClientRect& rect = process_.show.PreviewRect;
  PicBase.Move(0, 0, static_cast<float>((rect.right - rect.left) * process_.ScreenTwipsX),
               static_cast<float>((rect.bottom - rect.top) * process_.ScreenTwipsY));
  windows.SetParent(PicBase.Hwnd(), host);
  process_.show.PreviewAlive = true;
  InitShow(process_, *this);
}

// Does not unload the form: a running tick may still draw on the picture box. The next tick ends it.
void ControlForm::Msghook1_Message(int message) {
  if (message != kWmClose) return;
  process_.system.windows.SetParent(PicBase.Hwnd(), Hwnd());
  process_.show.PreviewAlive = false;
}

void ControlForm::tmrSwitch_Timer() {
  if (!process_.system.windows.IsWindow(ToWindowHandle(process_.SystemHwnd)) || !process_.show.PreviewAlive) {
    Unload();
  } else {
    SlideTick(process_, *this);
  }
}

}  // namespace quorvale
