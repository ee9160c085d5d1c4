#pragma once

#include <string>

#include "toolkit/form.h"
#include "toolkit/image_control.h"
#include "toolkit/nonvisual_controls.h"
#include "toolkit/picture_box.h"

namespace quorvale {

class ListBox;
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

  // What the form covers when it is not a miniature: the primary monitor, or its own.
  virtual ScreenSize Screen() const { return App().Screen(); }
  // Whether a picture has been shown, which the next transition wipes away.
  virtual bool& TransitionArmed();
  // Whether its ticks play the sounds.
  virtual bool PlaysSounds() const;

 protected:
  ShowForm(Process& process, std::string name, WindowKind kind, std::string caption, Font font);

  virtual void tmrSwitch_Timer() = 0;

  Process& process_;
};

// Whether the show on the full screen has a picture on each monitor, so that others may be showing the same list.
bool SharesPictures(const Process& process);

// Starts a show of the stored lists on a form: fills both collections (shuffled if the options say so), reads the
// background colour and the speed of transitions, and starts the form's timer. The first tick comes after 500 ms.
// Fails with kOverflow when an option is out of range: the timer stays off for the colour, but runs for the speed.
void InitShow(Process& process, ShowForm& form);

// The same for the lists in two list boxes.
void InitShow(Process& process, ShowForm& form, const ListBox& pictures, const ListBox& sounds);

// Lets `form` take part in the show that has been started on `first`. Its first tick, too, comes after 500 ms.
void JoinShow(ShowForm& form, const ShowForm& first);

}  // namespace quorvale
