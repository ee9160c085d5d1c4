#pragma once

#include <QTimer>
#include <QWindow>
#include <functional>

namespace quorvale {

// Keeps the keyboard at a show's window by holding the focus. A grab would keep screen lockers from locking, so it is
// used only where the window can't get the focus, and released when it can.
class FocusWatch : public QObject {
  Q_OBJECT

 public:
  // `lost` is called when another program's window has the focus, and when `window` is no longer on the screen. It is
  // not called for a screen locker, which grabs the keyboard but does not take the focus.
  FocusWatch(QWindow& window, std::function<void()> lost);

  // From the window's appearance to its hiding.
  void Start();
  void Stop();
  // While a box of this program needs the keys. Changes meanwhile are found when the pause ends.
  void SetPaused(bool paused);
  // Call it when the focus or the window's visibility may have changed.
  void CheckSoon();

 private:
  enum class Owner { kUs, kNobody, kOther };

  void Check();
  void RequestFocus();
  Owner OwnerOfFocus() const;
  bool IsOnScreen() const;
  void SetGrabbed(bool grabbed);

  QWindow& window_;
  std::function<void()> lost_;
  QTimer timer_;
  bool runs_ = false;
  bool paused_ = false;
  bool was_on_screen_ = false;
  bool had_focus_ = false;
  bool is_grabbed_ = false;
  int attempts_ = 0;
};

}  // namespace quorvale
