#pragma once

#include <QTimer>
#include <QWindow>
#include <functional>

namespace quorvale {

// Keeps the keyboard with a show's window by holding the focus. A grab would keep screen lockers from locking, so it
// is taken only where the focus can't be had, and let go of once it can.
class FocusWatch : public QObject {
  Q_OBJECT

 public:
  // `lost` is called when another program's window has the focus, and when `window` is no longer on the screen. A
  // screen locker takes the keyboard without that.
  FocusWatch(QWindow& window, std::function<void()> lost);

  // From the window's appearance to its hiding.
  void Start();
  void Stop();
  // A box of this program needs the keys. What happened meanwhile is found after it.
  void SetPaused(bool paused);
  // The focus or the window's place on the screen may have changed.
  void LookSoon();

 private:
  enum class Owner { kUs, kNobody, kOther };

  void Look();
  void Seek();
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
