#include "toolkit/dialogs.h"

#include "base/failure.h"
#include "base/strings.h"
#include "toolkit/form.h"

namespace quorvale {

void CommonDialog::ShowFile(bool save) {
  RequireLoaded();
  file_name = App().GetPlatform().ShowFileDialog(Parent().Window(), {.save = save,
                                                                     .title = title,
                                                                     .start_name = file_name,
                                                                     .filter = filter,
                                                                     .filter_index = filter_index,
                                                                     .flags = flags,
                                                                     .max_file_size = max_file_size});
  if (file_name.empty() && cancel_error)
    throw Failure(FailureNumber::kCancelled, strings::failures::kCancelled, Name());
}

void CommonDialog::ShowColor() {
  RequireLoaded();
  colour = App().GetPlatform().ShowColourDialog(Parent().Window(), colour);
}

}  // namespace quorvale
