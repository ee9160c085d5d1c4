#pragma once

#include <QProxyStyle>

namespace quorvale {

// The desktop's style, whose marks and handles are no larger than the control that they stand in: they follow the
// desktop's resolution alone, and the layout also the room on the screen.
class FittingStyle : public QProxyStyle {
  Q_OBJECT

 public:
  // The program's only one.
  static FittingStyle& Get();

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace quorvale
