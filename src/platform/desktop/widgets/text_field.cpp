#include "platform/desktop/widgets/text_field.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include "platform/common/deliver.h"

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

}  // namespace

TextField::TextField(TextBox& box) : box_(box) {
  if (box.MaxLength() > 0) setMaxLength(box.MaxLength());
  connect(this, &QLineEdit::textEdited, this,
          [&box](const QString& text) { Deliver([&] { box.UserSetText(text.toStdString()); }); });
}

// The keys that paste type what they paste.
void TextField::Paste() {
  QString taken;
  for (const char32_t character : QApplication::clipboard()->text().toUcs4()) {
    int code = static_cast<int>(character);
    Deliver([&] { code = box_.UserKeyPress(code); });
    if (code != 0) taken += QString::fromStdU32String(std::u32string(1, static_cast<char32_t>(code)));
  }
  insert(taken);
  Deliver([this] { box_.UserSetText(text().toStdString()); });
}

void TextField::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) return Paste();
  const int typed = TypedCharacter(*event);
  int taken = typed;
  if (typed != 0) Deliver([&] { taken = box_.UserKeyPress(typed); });
  if (taken == typed) {
    QLineEdit::keyPressEvent(event);
  } else if (taken != 0) {
    insert(QString::fromStdU32String(std::u32string(1, static_cast<char32_t>(taken))));
    Deliver([this] { box_.UserSetText(text().toStdString()); });
  }
}

}  // namespace quorvale
