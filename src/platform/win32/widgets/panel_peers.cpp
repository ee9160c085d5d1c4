#include "platform/win32/widgets/panel_peers.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>

#include "platform/win32/system/system_text.h"
#include "platform/win32/toolkit/top_window.h"
#include "platform/win32/widgets/dialog_keyboard.h"
#include "platform/win32/widgets/dialog_window.h"

namespace quorvale {
namespace {

ControlKind KindOf(const Frame& frame) {
  if (frame.Border()) return {L"BUTTON", BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};
  return {L"STATIC", WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};
}

// Blends the artwork over an opaque background.
void BlendOver(const PixelView& artwork, Colour background) {
  const Pixel below = ToPixel(background);
  const auto mix = [](Pixel upper, Pixel lower, unsigned shift, unsigned opacity) {
    const unsigned a = upper >> shift & 0xFFU;
    const unsigned b = lower >> shift & 0xFFU;
    return (a * opacity + b * (0xFFU - opacity)) / 0xFFU << shift;
  };
  for (int y = 0; y < artwork.height; ++y) {
    for (int x = 0; x < artwork.width; ++x) {
      Pixel& pixel = artwork.Row(y)[x];
      const unsigned opacity = pixel >> 24U;
      pixel =
          0xFF000000U | mix(pixel, below, 16, opacity) | mix(pixel, below, 8, opacity) | mix(pixel, below, 0, opacity);
    }
  }
}

void Fill(HWND window, HDC context, HBRUSH brush) {
  RECT client{};
  GetClientRect(window, &client);
  FillRect(context, &client, brush);
}

}  // namespace

FrameControl::FrameControl(DialogWindow& dialog, Frame& frame)
    : ControlPeer(dialog, frame, KindOf(frame)), frame_(frame) {
  dialog.AddContainer(frame, Window());
}

LRESULT FrameControl::OnMessage(UINT message, WPARAM first, LPARAM second) {
  LRESULT result = 0;
  if (Reflect(message, first, second, result)) return result;
  // A group box does not paint its inside, and its parent clips it out.
  if (message == WM_ERASEBKGND) {
    auto* const context = reinterpret_cast<HDC>(first);
    PageBackground& page = Dialog().Page();
    Fill(Window(), context, page.IsBehind(frame_) ? page.Brush(context) : GetSysColorBrush(COLOR_BTNFACE));
    return 1;
  }
  return Default(message, first, second);
}

// At least one layout pixel high, and at least one device pixel.
void RuleControl::Place() const {
  const PixelRect place = ToPixels(rule_.Place(), Dialog().Scale());
  const int thickness = std::max(1, static_cast<int>(Dialog().Scale()));
  SetWindowPos(Window(), nullptr, place.left, place.top, place.width, std::max(place.height, thickness),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT RuleControl::OnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_ERASEBKGND) return 1;
  if (message != WM_PAINT) return Default(message, first, second);
  const GdiObject<HBRUSH> brush(CreateSolidBrush(rule_.LineColor()));
  PAINTSTRUCT paint{};
  Fill(Window(), BeginPaint(Window(), &paint), brush.get());
  EndPaint(Window(), &paint);
  return 0;
}

LRESULT ImageViewControl::OnMessage(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      Paint();
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(Window(), nullptr, FALSE);
      break;
    case WM_KEYDOWN:
      if (first == VK_SPACE) view_.UserClick();
      break;
    case WM_SETCURSOR:
      if (!view_.Click) break;
      SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND)));
      return TRUE;
    default:
      break;
  }
  return Default(message, first, second);
}

void ImageViewControl::OnCommand(int code) {
  // A double click sends STN_DBLCLK for its second press, so it counts once.
  if (code == STN_CLICKED) view_.UserClick();
}

void ImageViewControl::Paint() {
  Bitmap artwork = view_.GetArtwork() ? view_.GetArtwork()(Dialog().Scale()) : Bitmap();
  PAINTSTRUCT paint{};
  const HDC context = BeginPaint(Window(), &paint);
  Fill(Window(), context, GetSysColorBrush(COLOR_BTNFACE));
  if (artwork.Width() > 0) {
    BlendOver(artwork.View(), GetSysColor(COLOR_BTNFACE));
    CopyPixels(context, artwork.View(), artwork.View().Bounds());
  }
  RECT client{};
  if (GetFocus() == Window() && GetClientRect(Window(), &client) != 0) DrawFocusRect(context, &client);
  EndPaint(Window(), &paint);
}

TabStripControl::TabStripControl(DialogWindow& dialog, TabStrip& strip)
    : ControlPeer(dialog, strip, {WC_TABCONTROLW, TCS_TOOLTIPS | TCS_FOCUSONBUTTONDOWN}), strip_(strip) {
  int position = 0;
  for (const TabStrip::Tab& tab : strip.Tabs()) {
    std::wstring caption = ToWide(tab.caption);
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = caption.data();
    Send(TCM_INSERTITEMW, static_cast<WPARAM>(position++), reinterpret_cast<LPARAM>(&item));
  }
  ShowValue();
  dialog.Page().SetStrip(strip, Window());
}

bool TabStripControl::PressAccessKey(wchar_t key) {
  if (IsWindowVisible(Window()) == 0 || IsWindowEnabled(Window()) == 0) return false;
  for (std::size_t i = 0; i < strip_.Tabs().size(); ++i) {
    if (!IsAccessKeyOf(strip_.Tabs()[i].caption, key)) continue;
    TakeFocus();
    strip_.UserSelect(static_cast<int>(i) + 1);
    return true;
  }
  return false;
}

bool TabStripControl::TurnPage(bool backwards) {
  if (IsWindowVisible(Window()) == 0 || IsWindowEnabled(Window()) == 0) return false;
  // What has the focus may be on the page that goes.
  TakeFocus();
  strip_.UserTurn(backwards);
  return true;
}

// The system does not report a click on the tab that is already selected.
LRESULT TabStripControl::OnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_LBUTTONDOWN) {
    TCHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(second), GET_Y_LPARAM(second)};
    const auto tab = static_cast<int>(Send(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    if (tab >= 0 && tab == Send(TCM_GETCURSEL)) strip_.UserSelect(tab + 1);
  }
  if (message == WM_NOTIFY) {
    auto& notice = *reinterpret_cast<NMHDR*>(second);
    if (notice.code == TTN_GETDISPINFOW && notice.idFrom < strip_.Tabs().size()) {
      tool_tip_ = ToWide(strip_.Tabs()[notice.idFrom].tool_tip);
      reinterpret_cast<NMTTDISPINFOW&>(notice).lpszText = tool_tip_.data();
      return 0;
    }
  }
  return Default(message, first, second);
}

LRESULT TabStripControl::OnNotify(NMHDR& notice) {
  if (notice.code == TCN_SELCHANGE) strip_.UserSelect(static_cast<int>(Send(TCM_GETCURSEL)) + 1);
  return 0;
}

void TabStripControl::ShowValue() { Send(TCM_SETCURSEL, static_cast<WPARAM>(strip_.SelectedItem() - 1)); }

}  // namespace quorvale
