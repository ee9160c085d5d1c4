#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSlider>
#include <algorithm>

#include "platform/common/deliver.h"
#include "platform/desktop/widgets/fitting.h"
#include "platform/desktop/widgets/qt_widgets.h"
#include "toolkit/entry_fields.h"

namespace quorvale {
namespace {

constexpr int kBackspace = 8;

// The character that the key types, or 0.
int TypedCharacter(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Backspace) return kBackspace;
  const bool is_command = event.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  const auto characters = event.text().toUcs4();
  const bool is_typed = !is_command && !characters.isEmpty() && QChar::isPrint(characters[0]);
  return is_typed ? static_cast<int>(characters[0]) : 0;
}

// A text box, which asks the control whether a typed character may come in. Pasting by keys counts as typing each
// character; pasting by the mouse does not.
class TextField : public QLineEdit {
 public:
  explicit TextField(TextBox& box) : box_(box) {
    if (box.MaxLength() > 0) setMaxLength(box.MaxLength());
    connect(this, &QLineEdit::textEdited, this,
            [&box](const QString& text) { Deliver([&] { box.UserSetText(text.toStdString()); }); });
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Paste)) return Paste();
    const int typed = TypedCharacter(*event);
    const int accepted = typed != 0 ? Filtered(typed) : typed;
    if (accepted == typed) {
      QLineEdit::keyPressEvent(event);
    } else if (accepted != 0) {
      Insert(ToText(accepted));
    }
  }

 private:
  static QString ToText(int code) {
    return code != 0 ? QString::fromStdU32String(std::u32string(1, static_cast<char32_t>(code))) : QString();
  }

  // The character that the control puts in place of this one, or 0.
  int Filtered(int code) {
    Deliver([&] { code = box_.UserKeyPress(code); });
    return code;
  }

  // In place of what is selected.
  void Insert(const QString& accepted) {
    insert(accepted);
    Deliver([this] { box_.UserSetText(text().toStdString()); });
  }

  void Paste() {
    QString accepted;
    for (const char32_t character : QApplication::clipboard()->text().toUcs4()) {
      accepted += ToText(Filtered(static_cast<int>(character)));
    }
    Insert(accepted);
  }

  TextBox& box_;
};

}  // namespace

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
