#include "saver/main_form.h"

#include "base/numbers.h"
#include "process/end_saver.h"
#include "process/process.h"
#include "saver/saver_password.h"
#include "show/slide_tick.h"
#include "show/start_show.h"
#include "system/host_system.h"
#include "system/window_system.h"
#include "toolkit/platform.h"

namespace quorvale {
namespace {

constexpr int kMovesThatEnd = 10;
constexpr double kCountSeconds = 10.0;
constexpr float kFontPoints = 12;

}  // namespace

MainForm::MainForm(Process& process)
    : ShowForm(process, "MainForm", WindowKind::kSaver, kMainFormCaption, {"MS Serif", kFontPoints}) {
  PicBase.KeyDown = [this](int /*key*/) { Unload(); };
  PicBase.MouseMove = [this] { CountMouseMove(); };
  PicPreview.MouseMove = [this] { CountMouseMove(); };
}

void MainForm::Form_Load() {
  process_.system.windows.SetWindowPos(Hwnd(), kHwndTopmost, 0, 0, 0, 0, kSwpNoSizeNoMove);
  const ScreenSize screen = App().Screen();
  Move(0, 0, screen.Width, screen.Height);
  ReadPasswordState(process_);
  TellSaverRunning(process_, true);
  PicBase.Move(0, 0, screen.Width, screen.Height);
  // The list may take seconds to read, and the desktop is covered all that time.
  Window().SetVisible(true);
  // What ended it in between has unloaded it.
  if (!IsLoaded()) return;
  InitShow(process_, *this);
  ForceCursorOff(process_);
}

// Runs for every way of unloading. The flag comes first: what pumps events above this handler finds it.
// While the password is asked for, the timer goes on firing and its handler does nothing.
void MainForm::Form_QueryUnload(bool& cancel) {
  process_.show.StopRequested = true;
  if (!IsPasswordInForce(process_)) return;
  ForceCursorOn(process_);
  if (VerifyPassword(process_, Hwnd())) return;
  ForceCursorOff(process_);
  cancel = true;
  process_.show.StopRequested = false;
}

void MainForm::Form_Unload() {
  ForceCursorOn(process_);
  TellSaverRunning(process_, false);
  tmrSwitch.SetEnabled(false);
}

void MainForm::Form_KeyDown(int /*key*/) { Unload(); }

void MainForm::Form_MouseDown() { Unload(); }

void MainForm::Form_MouseMove() { CountMouseMove(); }

// What keeps other programs' keys from going past the password: a show that may not end comes back to the front.
void MainForm::Form_Deactivate() {
  Unload();
  if (IsLoaded()) process_.system.windows.ActivateWindow(kMainFormCaption);
}

// The picture stays where it is; the next tick places its own anew.
void MainForm::Form_ScreenChange() {
  const ScreenSize screen = App().Screen();
  Move(0, 0, screen.Width, screen.Height);
  PicBase.Move(0, 0, screen.Width, screen.Height);
}

void MainForm::tmrSwitch_Timer() {
  if (!process_.show.StopRequested) SlideTick(process_, *this);
}

// No distance is measured: the events are counted. A count lasts until the first event that comes more
// than ten seconds after it began, and that event does not begin the next one.
void MainForm::CountMouseMove() {
  ++process_.show.MouseMoveCount;
  if (process_.show.MouseMoveCount == kMovesThatEnd) Unload();
  const double now = process_.system.host.SecondsSinceMidnight();
  if (FirstMoveTime_ == 0) {
    FirstMoveTime_ = RoundToInt32(now);
    return;
  }
  if (now - FirstMoveTime_ > kCountSeconds) {
    FirstMoveTime_ = 0;
    process_.show.MouseMoveCount = 0;
  }
}

}  // namespace quorvale
