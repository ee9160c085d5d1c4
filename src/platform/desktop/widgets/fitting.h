#pragma once

#include <QFont>
#include <QProxyStyle>
#include <QString>
#include <string>

namespace quorvale {

// The font of the controls, in the desktop's typeface and at the size for which the layout is designed.
QFont DialogFont();
// The same at another size.
QFont DialogFont(float points);

// The font, made smaller until the caption is no wider than `width` in Qt pixels, but not too small to read.
QFont FittingFont(const QFont& font, const QString& caption, int width);

// Converts layout pixels to Qt pixels.
int Scaled(double pixels);

// An "&" in a caption marks the access key.
QString Caption(const std::string& caption);
QString WithoutAccessKey(const QString& caption);

// The desktop's style with indicators no larger than their control. Their size follows the desktop's resolution only,
// while the layout shrinks where the screen has no room.
class FittingStyle : public QProxyStyle {
 public:
  // The program's only instance.
  static FittingStyle& Get();

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace quorvale
