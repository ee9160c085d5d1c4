#include "platform/desktop/widgets/label_widget.h"

#include <QFontMetrics>
#include <QRegularExpression>
#include <QTextDocument>

#include "platform/desktop/widgets/fitting.h"

namespace quorvale {
namespace {

constexpr int kLargestHeight = 1 << 20;

// Allows line breaks after the separators of a path.
QString Breakable(QString text) {
  static const QRegularExpression kSeparator("([/\\\\])");
  return text.replace(kSeparator, QStringLiteral("\\1\u200B"));
}

QString WithoutMiddle(const QString& text, qsizetype kept) {
  const qsizetype head = kept / 2;
  return text.left(head) + QChar(0x2026) + text.right(kept - head);
}

}  // namespace

LabelWidget::LabelWidget(const QFont& font) : font_(font) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void LabelWidget::ShowCaption(const QString& caption) {
  caption_ = caption;
  Fit();
}

void LabelWidget::LeadTo(QWidget& next) {
  setBuddy(&next);
  Fit();
}

QString LabelWidget::PlainText() const { return WithoutAccessKey(caption_); }

void LabelWidget::SetToolTip(const QString& tip) {
  tip_ = tip;
  setToolTip(tip);
}

void LabelWidget::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Fit();
}

void LabelWidget::Fit() {
  // Qt treats an "&" as a mark only if the label has a buddy.
  const QString plain = Breakable(PlainText());
  const QString shown = buddy() != nullptr ? Breakable(caption_) : plain;
  setToolTip(tip_);
  QFont font = font_;
  while (!Fits(font, plain) && font.pixelSize() > Scaled(9)) font.setPixelSize(font.pixelSize() - 1);
  setFont(font);
  if (Fits(font, plain)) {
    setText(shown);
    return;
  }
  qsizetype fitting = 0;
  for (qsizetype step = PlainText().size() / 2 + 1; step > 0; step = step > 1 ? (step + 1) / 2 : 0) {
    while (fitting + step < PlainText().size() && Fits(font, Breakable(WithoutMiddle(PlainText(), fitting + step)))) {
      fitting += step;
    }
  }
  setText(Breakable(WithoutMiddle(PlainText(), fitting)));
  // A path may look like HTML, which a tool tip would render.
  setToolTip(Qt::mightBeRichText(PlainText()) ? Qt::convertFromPlainText(PlainText()) : PlainText());
}

bool LabelWidget::Fits(const QFont& font, const QString& text) const {
  const QRect place = contentsRect();
  const QRect room(0, 0, place.width(), kLargestHeight);
  const QFontMetrics metrics(font);
  const QRect needed =
      metrics.boundingRect(room, static_cast<int>(alignment()) | (wordWrap() ? Qt::TextWordWrap : 0), text);
  // A single line may use the space that its letters leave above and below.
  const int least = metrics.height() - 2 * metrics.descent();
  const bool is_one_line = needed.height() <= metrics.height();
  return needed.width() <= place.width() && (is_one_line ? least : needed.height()) <= place.height();
}

}  // namespace quorvale
