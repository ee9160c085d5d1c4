#include "platform/win32/widgets/tab_order.h"

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/common/deliver.h"
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

// Those in no order come last.
std::pair<bool, int> OrderOf(HWND window) {
  const NativeControl* const control = NativeControl::Of(window);
  const int index = control != nullptr ? control->Design().tab_index : 0;
  return {index < 0, index};
}

// The lower, the further up.
auto RankOf(HWND window) {
  const NativeControl* const control = NativeControl::Of(window);
  return std::make_tuple(control != nullptr, control != nullptr && control->IsBackground(), OrderOf(window));
}

void SetGroup(HWND window, bool begins) {
  const LONG style = GetWindowLongW(window, GWL_STYLE);
  SetWindowLongW(window, GWL_STYLE,
                 begins ? style | static_cast<LONG>(WS_GROUP) : style & ~static_cast<LONG>(WS_GROUP));
}

BOOL CALLBACK AddTabStop(HWND window, LPARAM list) {
  const NativeControl* const control = NativeControl::Of(window);
  const bool is_stop = control != nullptr && (GetWindowLongW(window, GWL_STYLE) & WS_TABSTOP) != 0;
  if (!is_stop || IsWindowVisible(window) == 0 || IsWindowEnabled(window) == 0) return TRUE;
  Deliver([&] { reinterpret_cast<std::vector<HWND>*>(list)->push_back(window); });
  return TRUE;
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

// The system would go through one frame after the other.
HWND NextTabStop(HWND dialog, HWND from, bool backwards) {
  std::vector<HWND> stops;
  EnumChildWindows(dialog, &AddTabStop, reinterpret_cast<LPARAM>(&stops));
  if (stops.empty()) return nullptr;
  std::stable_sort(stops.begin(), stops.end(), [](HWND a, HWND b) { return OrderOf(a) < OrderOf(b); });
  const auto found =
      std::find_if(stops.begin(), stops.end(), [from](HWND stop) { return stop == from || IsChild(stop, from) != 0; });
  const std::size_t count = stops.size();
  if (found != stops.end()) {
    const auto at = static_cast<std::size_t>(found - stops.begin());
    return stops[(at + (backwards ? count - 1 : 1)) % count];
  }
  if (NativeControl::Of(from) == nullptr) return stops.front();
  const auto after =
      std::find_if(stops.begin(), stops.end(), [from](HWND stop) { return OrderOf(from) < OrderOf(stop); });
  return after != stops.end() ? *after : stops.front();
}

}  // namespace quorvale
