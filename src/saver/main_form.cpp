#include "saver/main_form.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "process/process.h"
#include "saver/saver_password.h"
#include "show/show_form.h"
#include "show/slide_tick.h"
#include "system/host_system.h"
#include "system/window_system.h"
#include "toolkit/platform.h"

namespace quorvale {
namespace {

constexpr int kMovesThatEnd = 10;
constexpr double kCountSeconds = 10.0;

WindowKind KindOf(const Options& options) {
  return options.MonitorsChoice() == Monitors::kPictureOnEach ? WindowKind::kSharedSaver : WindowKind::kSaver;
}

}  // namespace

MainForm::MainForm(Process& process)
    : ShowForm(process, "MainForm", KindOf(process.options), kMainFormCaption, SaverFont()),
      monitors_(process, *this, {.ended = [this] { Unload(); }, .mouse_move = [this] { CountMouseMove(); }}) {
  PicBase.KeyDown = [this](int /*key*/) { Unload(); };
  PicBase.MouseMove = [this] { CountMouseMove(); };
  PicPreview.MouseMove = [this] { CountMouseMove(); };
}

void MainForm::Form_Load() {
  process_.system.windows.SetWindowPos(Hwnd(), kHwndTopmost, 0, 0, 0, 0, kSwpNoSizeNoMove);
  const ScreenSize screen = App().Screen();
  Move(0, 0, screen.width, screen.height);
  ReadPasswordState(process_);
  ReportSaverRunning(process_, true);
  PicBase.Move(0, 0, screen.width, screen.height);
  // Show the window first: reading the lists may take seconds, and the desktop must be covered meanwhile.
  ColourCover();
  Window().SetVisible(true);
  // An event may have ended the show and unloaded the form.
  if (!IsLoaded()) return;
  FollowMonitors();
  if (!IsLoaded()) return;
  // Only the show on the primary monitor restarts the lists.
  if (process_.beside_primary) process_.show.first_tick_over = true;
  InitShow(process_, *this);
  FollowMonitors();
  ForceCursorOff(process_.system.windows);
}

// The screen would be painted twice if the cover had another colour than the show. A colour out of range fails the
// start of the show, where a failure is handled; the cover is black then.
void MainForm::ColourCover() {
  try {
    PicBase.SetBackColor(process_.options.BackColor());
  } catch (const Failure&) {  // NOLINT(bugprone-empty-catch): see above.
  }
}

void MainForm::FollowMonitors() {
  if (Kind() == WindowKind::kSharedSaver) monitors_.Follow();
}

// The flag is set first, so that a tick which is pumping events further up the stack sees it. It also keeps new ticks
// from doing anything while the password dialog is open; the timer itself is not stopped.
void MainForm::Form_QueryUnload(bool& cancel) {
  process_.show.stop_requested = true;
  if (!IsPasswordInForce(process_.show)) return;
  ForceCursorOn(process_.system.windows);
  if (VerifyPassword(process_.system.password, Hwnd())) return;
  ForceCursorOff(process_.system.windows);
  cancel = true;
  process_.show.stop_requested = false;
}

void MainForm::Form_Unload() {
  ForceCursorOn(process_.system.windows);
  ReportSaverRunning(process_, false);
  monitors_.Close();
  monitors_.AllTurns().Leave(tmrSwitch);
  tmrSwitch.SetEnabled(false);
}

void MainForm::Form_KeyDown(int /*key*/) { Unload(); }

void MainForm::Form_MouseDown() { Unload(); }

void MainForm::Form_MouseMove() { CountMouseMove(); }

// Other windows must not get keys while a password protects the show, so a show that may not end comes back to the
// front.
void MainForm::Form_Deactivate() {
  Unload();
  if (IsLoaded()) process_.system.windows.ActivateWindow(kMainFormCaption);
}

// The current picture is not laid out again; the next tick lays out the next one.
void MainForm::Form_ScreenChange() {
  const ScreenSize screen = App().Screen();
  Move(0, 0, screen.width, screen.height);
  PicBase.Move(0, 0, screen.width, screen.height);
  FollowMonitors();
}

void MainForm::tmrSwitch_Timer() {
  if (!process_.show.stop_requested) monitors_.AllTurns().Take(tmrSwitch, [this] { SlideTick(process_, *this); });
}

// Counts events, whatever their distance. An event that comes over ten seconds after the first one sets the count to
// zero.
void MainForm::CountMouseMove() {
  ++process_.show.mouse_move_count;
  if (process_.show.mouse_move_count == kMovesThatEnd) Unload();
  const double now = process_.system.host.SecondsSinceMidnight();
  if (FirstMoveTime_ == 0) {
    FirstMoveTime_ = RoundToInt32(now);
    return;
  }
  if (now - FirstMoveTime_ > kCountSeconds) {
    FirstMoveTime_ = 0;
    process_.show.mouse_move_count = 0;
  }
}

}  // namespace quorvale
