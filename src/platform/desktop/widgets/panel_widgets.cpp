#include "platform/desktop/widgets/panel_widgets.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <utility>

#include "platform/common/deliver.h"
#include "platform/desktop/toolkit/pixel_kind.h"
#include "platform/desktop/widgets/artwork_image.h"
#include "platform/desktop/widgets/fitting.h"

namespace quorvale {

void FrameBox::paintEvent(QPaintEvent* /*event*/) {
  constexpr double kCaptionLeft = 8;
  QPainter painter(this);
  const QFontMetrics metrics(font());
  const bool has_title = !title().isEmpty();
  const int gap = Scaled(2);
  const int left = Scaled(kCaptionLeft);
  const QString shown = metrics.elidedText(title(), Qt::ElideMiddle, width() - 2 * left, Qt::TextShowMnemonic);
  const QRect text(left, 0, metrics.horizontalAdvance(WithoutAccessKey(shown)), metrics.height());
  QRegion line = OutsideSiblings();
  if (has_title) line -= text.adjusted(-gap, 0, gap, 0);
  painter.setClipRegion(line);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, has_title ? metrics.height() / 2 : 0, -1, -1));
  if (!has_title) return;
  painter.setClipping(false);
  style()->drawItemText(&painter, text, Qt::AlignLeft | Qt::TextShowMnemonic | Qt::TextDontClip, palette(), isEnabled(),
                        shown, QPalette::WindowText);
}

QRegion FrameBox::OutsideSiblings() const {
  QRegion region = rect();
  bool above = false;
  for (const QObject* const sibling : parent()->children()) {
    const auto* const widget = qobject_cast<const QWidget*>(sibling);
    if (above && widget != nullptr && !widget->isHidden()) region -= widget->geometry().translated(-pos());
    above = above || sibling == this;
  }
  return region;
}

ArtworkWidget::ArtworkWidget(ImageView& view) : view_(view) {
  if (!view.Click) return;
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::TabFocus);
}

void ArtworkWidget::Refresh() {
  image_ = {};
  update();
}

void ArtworkWidget::paintEvent(QPaintEvent* /*event*/) {
  if (!view_.GetArtwork()) return;
  const double ratio = devicePixelRatioF();
  if (image_.isNull() || image_.devicePixelRatio() != ratio) {
    image_ = ToImage(view_.GetArtwork(), static_cast<float>(ToolkitScale(PixelKind::kLogical, ratio)));
    image_.setDevicePixelRatio(ratio);
  }
  QPainter painter(this);
  painter.drawImage(QPointF(), image_);
  if (!hasFocus()) return;
  QStyleOptionFocusRect focus;
  focus.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

void ArtworkWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) is_pressed_ = true;
}

void ArtworkWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(is_pressed_, false)) return;
  if (rect().contains(event->pos())) Deliver([this] { view_.UserClick(); });
}

void ArtworkWidget::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && view_.Click) {
    Deliver([this] { view_.UserClick(); });
  } else {
    QWidget::keyPressEvent(event);
  }
}

TabArea::TabArea(TabStrip& strip) {
  for (const TabStrip::Tab& tab : strip.Tabs()) {
    const int index = tabs_.addTab(Caption(tab.caption));
    tabs_.setTabToolTip(index, Caption(tab.tool_tip));
  }
  setFocusProxy(&tabs_);
  setFocusPolicy(Qt::StrongFocus);
  connect(&tabs_, &QTabBar::currentChanged, this,
          [&strip](int index) { Deliver([&] { strip.UserSelect(index + 1); }); });
}

void TabArea::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QStyleOptionTabWidgetFrame frame;
  frame.initFrom(this);
  frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
  frame.shape = tabs_.shape();
  frame.tabBarSize = tabs_.size();
  frame.tabBarRect = tabs_.geometry();
  frame.selectedTabRect = tabs_.tabRect(tabs_.currentIndex()).translated(tabs_.pos());
  const int overlap = style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, this);
  frame.rect = rect().adjusted(0, tabs_.height() - overlap, 0, 0);
  style()->drawPrimitive(QStyle::PE_FrameTabWidget, &frame, &painter, this);
}

void TabArea::resizeEvent(QResizeEvent* /*event*/) {
  const QSize wanted = tabs_.sizeHint();
  tabs_.setGeometry(0, 0, qMin(wanted.width(), width()), wanted.height());
}

}  // namespace quorvale
