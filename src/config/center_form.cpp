#include "config/center_form.h"

#include "toolkit/application.h"
#include "toolkit/form.h"

namespace quorvale {

void CenterForm(Form& form) {
  const ScreenSize screen = form.App().Screen();
  form.Move(screen.Width / 2 - form.Width() / 2, screen.Height / 2 - form.Height() / 2, form.Width(), form.Height());
}

}  // namespace quorvale
