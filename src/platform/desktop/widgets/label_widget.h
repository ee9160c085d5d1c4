#pragma once

#include <QLabel>

namespace quorvale {

// A label's text, wrapped and made smaller to fit its place; what does not fit even then is left out in the
// middle and shown when the pointer rests on it.
class LabelWidget : public QLabel {
  Q_OBJECT

 public:
  explicit LabelWidget(const QFont& font);

  // An "&" marks the access key.
  void ShowCaption(const QString& caption);
  // The access key leads there.
  void LeadTo(QWidget& next);
  QString PlainText() const;

  void SetToolTip(const QString& tip);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();
  bool Fits(const QFont& font, const QString& text) const;

  QFont font_;
  QString caption_;
  QString tip_;
};

}  // namespace quorvale
