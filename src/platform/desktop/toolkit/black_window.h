#pragma once

#include <QBackingStore>
#include <QWindow>
#include <memory>

#include "platform/common/black_windows.h"
#include "platform/desktop/toolkit/top_window.h"

namespace quorvale {

// Keeps one monitor black, and hands input on.
class QtBlackWindow : public QWindow, public BlackWindow {
  Q_OBJECT

 public:
  explicit QtBlackWindow(TopWindow& saver);

  void Cover(const PixelRect& monitor) override;
  void Hide() override { hide(); }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  TopWindow& saver_;
  QBackingStore buffer_{this};
};

// Covers every monitor but the primary one. `saver` outlives the windows.
std::unique_ptr<BlackWindows> CoverOtherMonitors(TopWindow& saver);

}  // namespace quorvale
