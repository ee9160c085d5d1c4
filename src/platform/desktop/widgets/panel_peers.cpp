#include <QPalette>
#include <QSignalBlocker>

#include "platform/desktop/widgets/control_peer.h"
#include "platform/desktop/widgets/fitting.h"
#include "platform/desktop/widgets/label_widget.h"
#include "platform/desktop/widgets/panel_widgets.h"
#include "platform/desktop/widgets/qt_widgets.h"

namespace quorvale {
namespace {

QColor ToQt(Colour colour) { return QColor::fromRgb(ToPixel(colour)); }

QFont FontOf(const LabelStyle& style) {
  QFont font = style.points > 0 ? DialogFont(style.points) : DialogFont();
  font.setBold(style.bold);
  return font;
}

void ShowColours(QWidget& widget, const Label& label) {
  QPalette palette = widget.palette();
  if (label.HasBackColor()) palette.setColor(QPalette::Window, ToQt(label.BackColor()));
  if (label.HasForeColor()) palette.setColor(QPalette::WindowText, ToQt(label.ForeColor()));
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
  palette.setColor(QPalette::Window, ToQt(rule.LineColor()));
  widget->setPalette(palette);
  widget->setMinimumHeight(Scaled(1));
  auto* const it = widget.get();
  auto peer = std::make_unique<ControlPeer>(window, rule, std::move(widget), [] {});
  it->lower();
  return peer;
}

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, ImageView& view) {
  auto widget = std::make_unique<ArtworkWidget>(view);
  auto* const it = widget.get();
  auto peer = std::make_unique<ControlPeer>(window, view, std::move(widget), [it] { it->Refresh(); });
  // Pictures lie below everything else.
  it->lower();
  return peer;
}

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, TabStrip& strip) {
  auto widget = std::make_unique<TabArea>(strip);
  auto* const it = widget.get();
  auto peer = std::make_unique<ControlPeer>(window, strip, std::move(widget), [&strip, it] {
    const QSignalBlocker silence(it->Tabs());
    it->Tabs().setCurrentIndex(strip.SelectedItem() - 1);
    it->update();
  });
  // The pages lie on it.
  it->lower();
  return peer;
}

}  // namespace quorvale
