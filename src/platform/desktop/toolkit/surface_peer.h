#pragma once

#include <QEvent>

#include "platform/common/presenter.h"
#include "toolkit/platform.h"

namespace quorvale {

// Base of this platform's two kinds of picture box, in a show's window and in a dialog.
class QtSurfacePeer : public SurfacePeer {
 public:
  virtual Presenter& Shown() = 0;
};

// The type of the event by which a picture box posts its next presentation.
QEvent::Type PresentEvent();

// The virtual key code of a `Qt::Key`, or 0 if it has none.
int VirtualKeyCode(int qt_key);

}  // namespace quorvale
