#pragma once

#include <cstdint>

namespace quorvale {

class ShowForm;
struct Process;

// Loads the picture at `PictureIndex` of `PictureList` and gives the hidden `PicPreview` its place on its
// picture box, at natural size in the middle or stretched over all of it, as it would be on the whole
// screen, scaled by the ratio of the box to the screen. Draws file name and frame on the box as the
// options say. Runs inside the tick: after a failed load the steps go on with the picture that is there.
void LayOutPicture(Process& process, ShowForm& form, std::int32_t PictureIndex);

}  // namespace quorvale
