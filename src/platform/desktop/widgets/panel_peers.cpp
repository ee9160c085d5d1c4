#include <QAccessibleWidget>
#include <QFontMetrics>
#include <QGroupBox>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>
#include <utility>

#include "platform/common/deliver.h"
#include "platform/desktop/toolkit/pixels.h"
#include "platform/desktop/widgets/fitting.h"
#include "platform/desktop/widgets/label_widget.h"
#include "platform/desktop/widgets/qt_widgets.h"
#include "toolkit/dialog_rules.h"
#include "toolkit/panels.h"

namespace quorvale {
namespace {

// A line around other controls with a caption in its upper edge. Qt's own drawing would leave them less room.
class FrameBox : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // The area outside the controls above it, such as a check box in place of the title.
  QRegion OutsideSiblings() const;
};

// Draws artwork at the resolution of the screen.
class ArtworkWidget : public QWidget {
 public:
  explicit ArtworkWidget(ImageView& view);

  // Draws the artwork again.
  void Refresh();

  bool IsLink() const { return static_cast<bool>(view_.Click); }
  void Press() {
    Deliver([this] { view_.UserClick(); });
  }

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

// What screen readers see of it: a picture, or a link that they can press.
class AccessibleArtwork : public QAccessibleWidget {
 public:
  explicit AccessibleArtwork(ArtworkWidget& artwork)
      : QAccessibleWidget(&artwork, artwork.IsLink() ? QAccessible::Link : QAccessible::Graphic), artwork_(artwork) {}

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (artwork_.IsLink()) names.prepend(pressAction());
    return names;
  }
  void doAction(const QString& action) override {
    if (action == pressAction()) {
      artwork_.Press();
    } else {
      QAccessibleWidget::doAction(action);
    }
  }

  // For Qt, which asks for the interface of each object.
  static QAccessibleInterface* Make(const QString& /*class_name*/, QObject* object) {
    auto* const artwork = dynamic_cast<ArtworkWidget*>(object);
    return artwork != nullptr ? new AccessibleArtwork(*artwork) : nullptr;
  }

 private:
  ArtworkWidget& artwork_;
};

// Tabs, and the frame of the area below them on which other controls lie.
class TabArea : public QWidget {
 public:
  explicit TabArea(TabStrip& strip);

  QTabBar& Tabs() { return tabs_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QTabBar tabs_{this};
};

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
  // A part of the text's colour is seen on light and on dark windows.
  QColor colour = palette().color(QPalette::WindowText);
  constexpr float kOpacity = 0.3F;
  colour.setAlphaF(kOpacity);
  painter.setPen(colour);
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
  if (!IsLink()) return;
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
  if (rect().contains(event->pos())) Press();
}

void ArtworkWidget::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && IsLink()) {
    Press();
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
  for (const bool backwards : {false, true}) {
    QList<QKeySequence> keys =
        QKeySequence::keyBindings(backwards ? QKeySequence::PreviousChild : QKeySequence::NextChild);
    // Qt's list has Backtab, which the event says. On X11 it looks for the shortcut by Tab.
    if (backwards) keys.append(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab));
    auto* const turn = new QShortcut(this);
    turn->setKeys(keys);
    connect(turn, &QShortcut::activated, this, [this, &strip, backwards] {
      // What has the focus may be on the page that goes.
      tabs_.setFocus(Qt::TabFocusReason);
      Deliver([&] { strip.UserTurn(backwards); });
    });
  }
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

QFont FontOf(const LabelStyle& style) {
  QFont font = style.points > 0 ? DialogFont(style.points) : DialogFont();
  font.setBold(style.bold);
  return font;
}

void ShowColours(QWidget& widget, const Label& label) {
  QPalette palette = widget.palette();
  if (label.HasBackColor()) palette.setColor(QPalette::Window, ToQtColour(label.BackColor()));
  if (label.HasForeColor()) {
    const Colour readable = ReadableColour(label.ForeColor(), ToColour(palette.color(QPalette::Window)));
    palette.setColor(QPalette::WindowText, ToQtColour(readable));
  }
  widget.setPalette(palette);
  widget.setAutoFillBackground(label.HasBackColor());
}

}  // namespace

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, Frame& frame) {
  std::unique_ptr<QWidget> widget;
  std::function<void()> show = [] {};
  if (frame.Border()) {
    auto box = std::make_unique<FrameBox>();
    show = [&frame, it = box.get()] { it->setTitle(Caption(frame.Caption())); };
    widget = std::move(box);
  } else {
    widget = std::make_unique<QWidget>();
  }
  WindowOf(window).AddContainer(frame, *widget);
  return std::make_unique<ControlPeer>(window, frame, std::move(widget), show);
}

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, Label& label) {
  auto widget = std::make_unique<LabelWidget>(FontOf(label.Style()));
  if (label.Style().border) widget->setFrameStyle(QFrame::Box | QFrame::Plain);
  if (label.Style().one_line) widget->setWordWrap(false);
  if (label.Style().centred) widget->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  auto show = [&label, it = widget.get()] {
    ShowColours(*it, label);
    it->SetToolTip(Caption(label.Design().tool_tip));
    it->ShowCaption(Caption(label.Caption()));
  };
  return std::make_unique<ControlPeer>(window, label, std::move(widget), show);
}

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, Rule& rule) {
  auto widget = std::make_unique<QWidget>();
  widget->setAutoFillBackground(true);
  QPalette palette;
  palette.setColor(QPalette::Window, ToQtColour(rule.LineColor()));
  widget->setPalette(palette);
  widget->setMinimumHeight(Scaled(1));
  auto* const it = widget.get();
  auto peer = std::make_unique<ControlPeer>(window, rule, std::move(widget), [] {});
  it->lower();
  return peer;
}

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, ImageView& view) {
  QAccessible::installFactory(&AccessibleArtwork::Make);
  auto widget = std::make_unique<ArtworkWidget>(view);
  auto* const it = widget.get();
  auto peer = std::make_unique<ControlPeer>(window, view, std::move(widget), [it] { it->Refresh(); });
  // Pictures are below all other controls.
  it->lower();
  return peer;
}

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, TabStrip& strip) {
  auto widget = std::make_unique<TabArea>(strip);
  auto* const it = widget.get();
  auto peer = std::make_unique<ControlPeer>(window, strip, std::move(widget), [&strip, it] {
    const QSignalBlocker silence(it->Tabs());
    it->Tabs().setAccessibleName(it->accessibleName());
    it->Tabs().setCurrentIndex(strip.SelectedItem() - 1);
    it->update();
  });
  // Its pages are above it.
  it->lower();
  return peer;
}

}  // namespace quorvale
