#pragma once

#include <cstdint>

namespace quorvale {

class ShowForm;
struct Process;

// Loads the picture at `picture_index` of `picture_list` and places the hidden `PicPreview` on its picture box: centred
// at natural size, stretched over the box, or scaled to it in its proportions. On a box smaller than the screen the
// picture shrinks by the same ratio. Draws the caption and the frame, each if its option is on. Runs inside the tick:
// if the load fails, the remaining steps lay out the previous picture.
void LayOutPicture(Process& process, ShowForm& form, std::int32_t picture_index);

}  // namespace quorvale
