#pragma once

#include <string>

#include "toolkit/form.h"
#include "toolkit/image_control.h"
#include "toolkit/nonvisual_controls.h"
#include "toolkit/picture_box.h"

namespace quorvale {

struct Process;

// A form on which a show runs, with the controls that `InitShow` and `SlideTick` use.
class ShowForm : public Form {
 public:
  Timer tmrSwitch;
  // The surface for picture, file name, frame and transitions.
  PictureBox PicBase;
  // The picture on view.
  ImageControl PicPreview;
  // Never shown. Measures pictures: it always has its picture's natural size.
  ImageControl imgFullSize;

 protected:
  ShowForm(Process& process, std::string name, WindowKind kind, std::string caption, Font font);

  virtual void tmrSwitch_Timer() = 0;

  Process& process_;
};

}  // namespace quorvale
