#include "platform/win32/widgets/tab_order.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "platform/win32/widgets/native_control.h"

namespace quorvale {
namespace {

// From the top down.
std::vector<HWND> ChildrenOf(HWND parent) {
  std::vector<HWND> children;
  for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    children.push_back(child);
  }
  return children;
}

bool IsOptionButton(HWND window) {
  const NativeControl* const control = NativeControl::Of(window);
  return control != nullptr && control->IsOptionButton();
}

// The lower, the further up.
auto RankOf(HWND window) {
  const NativeControl* const control = NativeControl::Of(window);
  const bool is_background = control != nullptr && control->IsBackground();
  const int index = control != nullptr ? control->Design().tab_index : 0;
  return std::make_tuple(control != nullptr, is_background, index < 0, index);
}

void SetGroup(HWND window, bool begins) {
  const LONG style = GetWindowLongW(window, GWL_STYLE);
  SetWindowLongW(window, GWL_STYLE,
                 begins ? style | static_cast<LONG>(WS_GROUP) : style & ~static_cast<LONG>(WS_GROUP));
}

}  // namespace

void ArrangeTabOrder(HWND parent) {
  std::vector<HWND> children = ChildrenOf(parent);
  std::stable_sort(children.begin(), children.end(), [](HWND a, HWND b) { return RankOf(a) < RankOf(b); });
  HWND above = HWND_TOP;
  bool after_option = false;
  for (const HWND child : children) {
    SetWindowPos(child, above, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    // A row of option buttons is one group; everything else is a group of its own.
    SetGroup(child, !after_option || !IsOptionButton(child));
    after_option = IsOptionButton(child);
    above = child;
    if (NativeControl::Of(child) != nullptr) ArrangeTabOrder(child);
  }
}

}  // namespace quorvale
