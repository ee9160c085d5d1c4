#pragma once

namespace quorvale {

// The virtual key code of a `Qt::Key`, or 0 for one that has none here.
int VirtualKeyCode(int qt_key);

}  // namespace quorvale
