#pragma once

#include <QLineEdit>

#include "toolkit/entry_fields.h"

namespace quorvale {

// A text box, which asks for each typed character whether it may come in.
class TextField : public QLineEdit {
  Q_OBJECT

 public:
  explicit TextField(TextBox& box);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Paste();

  TextBox& box_;
};

}  // namespace quorvale
