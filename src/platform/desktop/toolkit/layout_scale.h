#pragma once

namespace quorvale {

// Qt's pixels to a pixel of a dialog's layout. Dialogs are laid out at 96 dots per inch in the usual font, and
// grow as a whole where the desktop's resolution or its font asks for larger text, as far as the screen has room
// for them; where it has no room for the tallest one, all shrink.
double LayoutScale();

}  // namespace quorvale
