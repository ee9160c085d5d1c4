#pragma once

#include <QBackingStore>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include "platform/desktop/toolkit/top_window.h"

namespace quorvale {

// Keeps one monitor black, and hands input on.
class BlackWindow : public QWindow {
  Q_OBJECT

 public:
  BlackWindow(QScreen& monitor, TopWindow& saver);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override { saver_.TakeKey(event->key()); }
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  TopWindow& saver_;
  QBackingStore buffer_{this};
};

}  // namespace quorvale
