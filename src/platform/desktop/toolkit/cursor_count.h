#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace quorvale {

// The display count of the mouse cursor, which is hidden over our windows while it is below 0.
class CursorCount {
 public:
  CursorCount() = default;
  ~CursorCount() { SetHidden(false); }
  CursorCount(const CursorCount&) = delete;
  CursorCount& operator=(const CursorCount&) = delete;

  // Gives the count after the change.
  int Show(bool show) {
    count_ += show ? 1 : -1;
    SetHidden(count_ < 0);
    return count_;
  }

 private:
  void SetHidden(bool hidden) {
    if (hidden == hidden_) return;
    hidden_ = hidden;
    if (hidden) {
      QGuiApplication::setOverrideCursor(Qt::BlankCursor);
    } else {
      QGuiApplication::restoreOverrideCursor();
    }
  }

  int count_ = 0;
  bool hidden_ = false;
};

}  // namespace quorvale
