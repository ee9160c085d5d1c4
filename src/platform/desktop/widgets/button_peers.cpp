#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>

#include "platform/common/deliver.h"
#include "platform/desktop/widgets/fitting.h"
#include "platform/desktop/widgets/qt_widgets.h"
#include "toolkit/buttons.h"

namespace quorvale {
namespace {

constexpr int kButtonMargin = 4;

void ShowCaption(QAbstractButton& button, const Widget& control, int beside_text) {
  button.setText(Caption(control.Caption()));
  button.setFont(FittingFont(DialogFont(), button.text(), button.width() - beside_text));
}

// The width beside the text of a check box or an option button.
int IndicatorWidth(const QAbstractButton& button, QStyle::PixelMetric indicator, QStyle::PixelMetric gap) {
  return button.style()->pixelMetric(indicator, nullptr, &button) + button.style()->pixelMetric(gap, nullptr, &button);
}

template <typename Control>
void ReportClicks(QAbstractButton& widget, Control& control) {
  QObject::connect(&widget, &QAbstractButton::clicked, &widget,
                   [&control] { Deliver([&control] { control.UserClick(); }); });
}

}  // namespace

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, Button& button) {
  auto widget = std::make_unique<QPushButton>();
  ReportClicks(*widget, button);
  widget->setDefault(button.is_default);
  if (button.is_cancel) WindowOf(window).SetCancelButton(*widget);
  auto show = [&button, it = widget.get()] { ShowCaption(*it, button, 2 * Scaled(kButtonMargin)); };
  return std::make_unique<ControlPeer>(window, button, std::move(widget), show);
}

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, CheckBox& box) {
  auto widget = std::make_unique<QCheckBox>();
  ReportClicks(*widget, box);
  auto show = [&box, it = widget.get()] {
    ShowCaption(*it, box, IndicatorWidth(*it, QStyle::PM_IndicatorWidth, QStyle::PM_CheckBoxLabelSpacing));
    it->setChecked(box.Value() == 1);
  };
  return std::make_unique<ControlPeer>(window, box, std::move(widget), show);
}

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, OptionButton& button) {
  auto widget = std::make_unique<QRadioButton>();
  ReportClicks(*widget, button);
  auto show = [&button, it = widget.get()] {
    ShowCaption(*it, button,
                IndicatorWidth(*it, QStyle::PM_ExclusiveIndicatorWidth, QStyle::PM_RadioButtonLabelSpacing));
    // Qt keeps one button of a group on, and turns that off when another is turned on, which the toolkit does first.
    if (button.Value()) it->setChecked(true);
  };
  return std::make_unique<ControlPeer>(window, button, std::move(widget), show);
}

}  // namespace quorvale
