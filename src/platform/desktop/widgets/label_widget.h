#pragma once

#include <QLabel>

namespace quorvale {

// A label whose text is wrapped and made smaller to fit its place. A text that is still too long is cut in the middle,
// and a tool tip shows all of it.
class LabelWidget : public QLabel {
  Q_OBJECT

 public:
  explicit LabelWidget(const QFont& font);

  void ShowCaption(const QString& caption);
  // The access key moves the focus there.
  void LeadTo(QWidget& next);
  // Without access key marks.
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
