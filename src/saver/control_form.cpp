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
      message_hook(*this, "Msghook1") {
  message_hook.Message = [this](int message) { Msghook1_Message(message); };
}

void ControlForm::Form_Load() {
  WindowSystem& windows = process_.system.windows;
  const WindowHandle host = ToWindowHandle(process_.system_hwnd);
  message_hook.SetHwnd(PicBase.Hwnd());
  message_hook.Report(kWmClose);
  windows.GetClientRect(host, process_.show.preview_rect);
  const ClientRect& rect = process_.show.preview_rect;
  PicBase.Move(0, 0, static_cast<float>((rect.right - rect.left) * process_.screen_twips_x),
               static_cast<float>((rect.bottom - rect.top) * process_.screen_twips_y));
  windows.SetParent(PicBase.Hwnd(), host);
  process_.show.preview_alive = true;
  InitShow(process_, *this);
}

// Does not unload the form: a running tick may still draw on the picture box. The next tick ends it.
void ControlForm::Msghook1_Message(int message) {
  if (message != kWmClose) return;
  process_.system.windows.SetParent(PicBase.Hwnd(), Hwnd());
  process_.show.preview_alive = false;
}

void ControlForm::tmrSwitch_Timer() {
  if (!process_.system.windows.IsWindow(ToWindowHandle(process_.system_hwnd)) || !process_.show.preview_alive) {
    Unload();
  } else {
    SlideTick(process_, *this);
  }
}

}  // namespace quorvale
