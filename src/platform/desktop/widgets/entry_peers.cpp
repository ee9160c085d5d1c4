#include <QComboBox>
#include <QSlider>
#include <algorithm>

#include "platform/common/deliver.h"
#include "platform/desktop/widgets/control_peer.h"
#include "platform/desktop/widgets/fitting.h"
#include "platform/desktop/widgets/qt_widgets.h"
#include "platform/desktop/widgets/text_field.h"
#include "toolkit/entry_fields.h"

namespace quorvale {

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, TextBox& box) {
  auto widget = std::make_unique<TextField>(box);
  auto show = [&box, it = widget.get()] {
    const QString text = Caption(box.Text());
    if (it->text() != text) it->setText(text);
  };
  return std::make_unique<ControlPeer>(window, box, std::move(widget), show);
}

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, DropDownList& list) {
  auto widget = std::make_unique<QComboBox>();
  for (const std::string& item : list.Items()) widget->addItem(Caption(item));
  widget->setMaxVisibleItems(widget->count());
  QObject::connect(widget.get(), &QComboBox::activated, widget.get(),
                   [&list](int index) { Deliver([&] { list.UserChoose(index); }); });
  auto show = [&list, it = widget.get()] { it->setCurrentIndex(list.ListIndex()); };
  return std::make_unique<ControlPeer>(window, list, std::move(widget), show);
}

std::unique_ptr<WidgetPeer> QtWidgets::Make(WindowPeer& window, Slider& slider) {
  constexpr int kPagesOfRange = 5;
  auto widget = std::make_unique<QSlider>(Qt::Horizontal);
  widget->setRange(slider.Min(), slider.Max());
  widget->setPageStep(std::max(1, (slider.Max() - slider.Min() + 1) / kPagesOfRange));
  widget->setTickPosition(QSlider::TicksBelow);
  widget->setTickInterval(1);
  QObject::connect(widget.get(), &QSlider::valueChanged, widget.get(),
                   [&slider](int value) { Deliver([&] { slider.UserSetValue(value); }); });
  auto show = [&slider, it = widget.get()] { it->setValue(slider.Value()); };
  return std::make_unique<ControlPeer>(window, slider, std::move(widget), show);
}

}  // namespace quorvale
