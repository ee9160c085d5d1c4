#pragma once

#include <string>

#include "toolkit/form.h"
#include "toolkit/image_control.h"
#include "toolkit/picture_box.h"
#include "toolkit/timer.h"

namespace quorvale {

struct Process;

// A form on which a show runs: what `InitShow` and `SlideTick` find on it.
class ShowForm : public Form {
 public:
  Timer tmrSwitch;
  // The surface: carries picture, text and frame, and the transitions paint on it.
  PictureBox PicBase;
  // The picture on view.
  ImageControl PicPreview;
  // Hidden; takes on the natural size of its picture.
  ImageControl imgFullSize;

 protected:
  ShowForm(Process& process, std::string name, WindowKind kind, std::string caption, Font font);

  virtual void tmrSwitch_Timer() = 0;

  Process& process_;
};

}  // namespace quorvale
