#include "platform/win32/widgets/panel_peers.h"

#include <algorithm>

#include "platform/win32/toolkit/top_window.h"
#include "platform/win32/widgets/dialog_window.h"

namespace quorvale {
namespace {

ControlKind KindOf(const Frame& frame) {
  if (frame.Border()) return {L"BUTTON", BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};
  return {L"STATIC", WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};
}

// What the artwork lets through shows `background`.
void LayOn(const PixelView& artwork, Colour background) {
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
  // The system's frame leaves what it surrounds to the window below, which leaves it to the frame.
  if (message == WM_ERASEBKGND) {
    auto* const context = reinterpret_cast<HDC>(first);
    PageBackground& page = Dialog().Page();
    Fill(Window(), context, page.IsUnder(frame_) ? page.Brush(context) : GetSysColorBrush(COLOR_BTNFACE));
    return 1;
  }
  return Default(message, first, second);
}

// A pixel of the layout high, and never less than one of the screen.
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
  // The second press of a double click makes no second click.
  if (code == STN_CLICKED) view_.UserClick();
}

void ImageViewControl::Paint() {
  Bitmap artwork = view_.GetArtwork() ? view_.GetArtwork()(Dialog().Scale()) : Bitmap();
  PAINTSTRUCT paint{};
  const HDC context = BeginPaint(Window(), &paint);
  Fill(Window(), context, GetSysColorBrush(COLOR_BTNFACE));
  if (artwork.Width() > 0) {
    LayOn(artwork.View(), GetSysColor(COLOR_BTNFACE));
    CopyPixels(context, artwork.View(), artwork.View().Bounds());
  }
  RECT client{};
  if (GetFocus() == Window() && GetClientRect(Window(), &client) != 0) DrawFocusRect(context, &client);
  EndPaint(Window(), &paint);
}

}  // namespace quorvale
