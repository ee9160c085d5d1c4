#include "toolkit/dialogs.h"

#include "base/failure.h"
#include "base/strings.h"
#include "toolkit/form.h"

namespace quorvale {

void CommonDialog::ShowFile(bool save) {
  RequireLoaded();
  FileName = App().GetPlatform().ShowFileDialog(Parent().Window(), {.save = save,
                                                                    .title = DialogTitle,
                                                                    .start_name = FileName,
                                                                    .filter = Filter,
                                                                    .filter_index = FilterIndex,
                                                                    .flags = Flags,
                                                                    .max_file_size = MaxFileSize});
  if (FileName.empty() && CancelError) throw Failure(FailureNumber::kCancelled, strings::failures::kCancelled, Name());
}

void CommonDialog::ShowColor() {
  RequireLoaded();
  Color = App().GetPlatform().ShowColourDialog(Parent().Window(), Color);
}

}  // namespace quorvale
