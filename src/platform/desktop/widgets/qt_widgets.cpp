#include "platform/desktop/widgets/qt_widgets.h"

#include <QSignalBlocker>
#include <utility>

#include "platform/desktop/toolkit/pixels.h"
#include "platform/desktop/widgets/fitting.h"
#include "toolkit/dialog_rules.h"

namespace quorvale {

DialogWindow& WindowOf(WindowPeer& peer) { return static_cast<DialogPeer&>(peer).Window(); }

ControlPeer::ControlPeer(WindowPeer& window, Widget& control, std::unique_ptr<QWidget> widget,
                         std::function<void()> show)
    : control_(control), widget_(widget.release()), show_(std::move(show)) {
  widget_->setStyle(&FittingStyle::Get());
  DialogWindow& dialog = WindowOf(window);
  widget_->setObjectName(Caption(control.Name()));
  if (!control.Design().tool_tip.empty()) widget_->setToolTip(Caption(control.Design().tool_tip));
  widget_->setParent(&dialog.ContainerOf(control.Design().container));
  dialog.AddControl(control, *widget_);
  Update(WidgetAspect::kPlace);
  Update(WidgetAspect::kEnabled);
  Update(WidgetAspect::kVisible);
}

void ControlPeer::Update(WidgetAspect aspect) {
  if (!widget_) return;
  switch (aspect) {
    case WidgetAspect::kPlace:
      widget_->setGeometry(ToQtPixels(ToPixels(control_.Place(), 1), 1 / LayoutScale()));
      Show();
      break;
    case WidgetAspect::kVisible:
      widget_->setVisible(control_.Visible());
      break;
    case WidgetAspect::kEnabled:
      widget_->setEnabled(control_.Enabled());
      break;
    case WidgetAspect::kCaption:
    case WidgetAspect::kColour:
    case WidgetAspect::kValue:
    case WidgetAspect::kContents:
      Show();
      break;
  }
}

void ControlPeer::Show() {
  const QSignalBlocker silence(*widget_);
  widget_->setAccessibleName(Caption(SpokenName(control_)));
  show_();
}

}  // namespace quorvale
