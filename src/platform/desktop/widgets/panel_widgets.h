#pragma once

#include <QGroupBox>
#include <QTabBar>
#include <QWidget>

#include "toolkit/panels.h"

namespace quorvale {

// A line around other controls with a caption in its upper edge. Qt's own box would take room from them.
class FrameBox : public QGroupBox {
  Q_OBJECT

 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // What of it no control that stands over it takes, such as a check box in the place of the title.
  QRegion OutsideSiblings() const;
};

// Artwork, drawn for the pixels that are there.
class ArtworkWidget : public QWidget {
  Q_OBJECT

 public:
  explicit ArtworkWidget(ImageView& view);

  // Draws the artwork anew.
  void Refresh();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  // The second press of a double click makes no second click.
  void mouseDoubleClickEvent(QMouseEvent* /*event*/) override {}
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  ImageView& view_;
  QImage image_;
  bool is_pressed_ = false;
};

// Tabs above the edge of an area on which other controls lie.
class TabArea : public QWidget {
  Q_OBJECT

 public:
  explicit TabArea(TabStrip& strip);

  QTabBar& Tabs() { return tabs_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QTabBar tabs_{this};
};

}  // namespace quorvale
