#pragma once

#include <memory>
#include <type_traits>

#include "platform/win32/windows_api.h"
#include "toolkit/bitmap.h"

namespace quorvale {

struct DeleteIcon {
  void operator()(HICON icon) const { DestroyIcon(icon); }
};

using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, DeleteIcon>;

// Null where the system makes none.
Icon MakeIcon(Bitmap picture);

}  // namespace quorvale
