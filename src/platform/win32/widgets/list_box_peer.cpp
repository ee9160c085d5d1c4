#include "platform/win32/widgets/list_box_peer.h"

#include <shellapi.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "base/text.h"
#include "platform/win32/system/system_text.h"
#include "platform/win32/toolkit/gdi.h"
#include "platform/win32/widgets/dialog_window.h"

namespace quorvale {
namespace {

constexpr UINT kShowItems = WM_APP + 10;
constexpr int kTextIndent = 2;
// Longer texts would not fit into any list.
constexpr std::size_t kMostCharacters = 300;
constexpr LPARAM kUsualTextBytes = 600;

constexpr DWORD kStyle =
    WS_VSCROLL | LBS_NOTIFY | LBS_EXTENDEDSEL | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;

int LineHeight(HFONT font) {
  const MemoryContext context;
  context.Select(font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(context.Get(), &metrics);
  return metrics.tmHeight;
}

}  // namespace

ListBoxControl::ListBoxControl(DialogWindow& dialog, ListBox& list)
    : ControlPeer(dialog, list, {L"LISTBOX", kStyle, WS_EX_CLIENTEDGE}), list_(list) {
  FitLines();
  DragAcceptFiles(Window(), TRUE);
  ShowItems();
}

void ListBoxControl::FollowScale() {
  NativeControl::FollowScale();
  FitLines();
}

LRESULT ListBoxControl::OnMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case kShowItems:
      ShowItems();
      return 0;
    case WM_DROPFILES:
      Drop(first);
      return 0;
    case WM_KEYDOWN:
      if (first == VK_DELETE) list_.UserDelete();
      break;
    case WM_CHAR:
      if (first != kSelectAll) break;
      Send(LB_SETSEL, TRUE, -1);
      ReportSelection();
      return 0;
    default:
      break;
  }
  return Default(message, first, second);
}

void ListBoxControl::OnCommand(int code) {
  if (code == LBN_SELCHANGE) ReportSelection();
}

void ListBoxControl::OnDraw(const DRAWITEMSTRUCT& item) {
  const int index = static_cast<int>(item.itemID);
  if (index < 0 || index >= list_.ListCount()) return;
  const bool is_selected = (item.itemState & ODS_SELECTED) != 0;
  const int text_colour = (item.itemState & ODS_DISABLED) != 0 ? COLOR_GRAYTEXT
                          : is_selected                        ? COLOR_HIGHLIGHTTEXT
                                                               : COLOR_WINDOWTEXT;
  SetTextColor(item.hDC, GetSysColor(text_colour));
  SetBkColor(item.hDC, GetSysColor(is_selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  const std::wstring text = ShownText(index);
  ExtTextOutW(item.hDC, item.rcItem.left + kTextIndent, item.rcItem.top, ETO_OPAQUE | ETO_CLIPPED, &item.rcItem,
              text.data(), static_cast<UINT>(text.size()), nullptr);
  if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
}

void ListBoxControl::FitLines() const { Send(LB_SETITEMHEIGHT, 0, LineHeight(Dialog().FontOf(0, false))); }

// A posted message comes before any later input.
void ListBoxControl::ShowSoon() {
  if (!std::exchange(is_stale_, true)) PostMessageW(Window(), kShowItems, 0, 0);
}

void ListBoxControl::ShowItems() {
  is_stale_ = false;
  // Without this, each change would scroll and draw.
  Send(WM_SETREDRAW, FALSE);
  const LRESULT top = Send(LB_GETTOPINDEX);
  const LRESULT caret = Send(LB_GETCARETINDEX);
  ShowTexts();
  Send(LB_SETSEL, FALSE, -1);
  int first = 0;
  for (int i = 0; i < list_.ListCount(); ++i) {
    if (!list_.Selected(i)) {
      first = i + 1;
    } else if (i + 1 == list_.ListCount() || !list_.Selected(i + 1)) {
      SelectRange(first, i);
    }
  }
  PutCaret(static_cast<int>(caret));
  Send(LB_SETTOPINDEX, static_cast<WPARAM>(top));
  // If the program has selected one item, the arrow keys start from it.
  if (std::exchange(is_selected_, false) && list_.SelCount() == 1) {
    int only = 0;
    while (!list_.Selected(only)) ++only;
    PutCaret(only);
  }
  Send(WM_SETREDRAW, TRUE);
  InvalidateRect(Window(), nullptr, TRUE);
}

// Also scrolls to the item.
void ListBoxControl::PutCaret(int index) const {
  const int last = list_.ListCount() - 1;
  if (index < 0 || last < 0) return;
  Send(LB_SETANCHORINDEX, static_cast<WPARAM>(std::min(index, last)));
  Send(LB_SETCARETINDEX, static_cast<WPARAM>(std::min(index, last)), FALSE);
}

// The system's copies of the texts are for screen readers. `OnDraw` takes the texts from the list.
void ListBoxControl::ShowTexts() {
  if (!std::exchange(has_new_texts_, false)) return;
  Send(LB_RESETCONTENT);
  Send(LB_INITSTORAGE, static_cast<WPARAM>(list_.ListCount()), list_.ListCount() * kUsualTextBytes);
  for (int i = 0; i < list_.ListCount(); ++i) {
    Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ShownText(i).c_str()));
  }
}

std::wstring ListBoxControl::ShownText(int index) const { return ToWide(Left(list_.List(index), kMostCharacters)); }

void ListBoxControl::SelectRange(int first, int last) const {
  if (first == last) {
    Send(LB_SETSEL, TRUE, first);
  } else {
    Send(LB_SELITEMRANGEEX, static_cast<WPARAM>(first), last);
  }
}

void ListBoxControl::ReportSelection() {
  std::vector<int> selected(static_cast<std::size_t>(Send(LB_GETSELCOUNT)));
  Send(LB_GETSELITEMS, selected.size(), reinterpret_cast<LPARAM>(selected.data()));
  list_.UserSelect(selected);
}

void ListBoxControl::Drop(WPARAM drop) {
  auto* const handle = reinterpret_cast<HDROP>(drop);
  std::vector<std::string> paths;
  const UINT count = DragQueryFileW(handle, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::wstring path(DragQueryFileW(handle, i, nullptr, 0) + 1, L'\0');
    path.resize(DragQueryFileW(handle, i, path.data(), static_cast<UINT>(path.size())));
    paths.push_back(FromWide(path));
  }
  DragFinish(handle);
  list_.UserDrop(paths);
}

}  // namespace quorvale
