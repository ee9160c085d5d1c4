#include "platform/win32/widgets/entry_peers.h"

#include <commctrl.h>

#include <cmath>

#include "platform/win32/system/system_text.h"
#include "platform/win32/widgets/dialog_window.h"

namespace quorvale {
namespace {

// The height of the open list, in lines.
constexpr int kOpenLines = 12;
// The height of a slider's thumb, in layout pixels.
constexpr float kThumbPixels = 14;

std::string TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return FromWide(text);
}

}  // namespace

TextBoxControl::TextBoxControl(DialogWindow& dialog, TextBox& box)
    : ControlPeer(dialog, box, {L"EDIT", ES_AUTOHSCROLL, WS_EX_CLIENTEDGE}), box_(box) {
  Send(EM_LIMITTEXT, static_cast<WPARAM>(box.MaxLength()));
  ShowValue();
}

LRESULT TextBoxControl::OnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message != WM_CHAR) return Default(message, first, second);
  if (first == kSelectAll) return Send(EM_SETSEL, 0, -1);
  const int code = box_.UserKeyPress(static_cast<int>(first));
  return code != 0 ? Default(message, static_cast<WPARAM>(code), second) : 0;
}

void TextBoxControl::OnCommand(int code) {
  if (code == EN_CHANGE && !is_showing_) box_.UserSetText(TextOf(Window()));
}

void TextBoxControl::ShowValue() {
  is_showing_ = true;
  SetWindowTextW(Window(), ToWide(box_.Text()).c_str());
  is_showing_ = false;
}

DropDownControl::DropDownControl(DialogWindow& dialog, DropDownList& list)
    : ControlPeer(dialog, list, {L"COMBOBOX", WS_VSCROLL | CBS_DROPDOWNLIST}), list_(list) {
  for (const std::string& item : list.Items()) {
    Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(item).c_str()));
  }
  Place();
  ShowValue();
}

void DropDownControl::OnCommand(int code) {
  if (code == CBN_SELCHANGE) list_.UserChoose(static_cast<int>(Send(CB_GETCURSEL)));
}

// For Windows, the height of a drop-down list includes its open list.
void DropDownControl::Place() const {
  const PixelRect place = ToPixels(list_.Place(), Dialog().Scale());
  const int line = static_cast<int>(Send(CB_GETITEMHEIGHT));
  SetWindowPos(Window(), nullptr, place.left, place.top, place.width, place.height + kOpenLines * line,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void DropDownControl::ShowValue() { Send(CB_SETCURSEL, static_cast<WPARAM>(list_.ListIndex())); }

SliderControl::SliderControl(DialogWindow& dialog, Slider& slider)
    : ControlPeer(dialog, slider, {TRACKBAR_CLASSW, TBS_HORZ | TBS_AUTOTICKS | TBS_FIXEDLENGTH}), slider_(slider) {
  FitThumb();
  Send(TBM_SETRANGE, TRUE, MAKELPARAM(slider.Min(), slider.Max()));
  ShowValue();
}

void SliderControl::FollowScale() {
  ControlPeer::FollowScale();
  FitThumb();
}

// The default thumb leaves no room for the ticks.
void SliderControl::FitThumb() const {
  Send(TBM_SETTHUMBLENGTH, static_cast<WPARAM>(std::lround(kThumbPixels * Dialog().Scale())));
}

void SliderControl::OnScroll() { slider_.UserSetValue(static_cast<int>(Send(TBM_GETPOS))); }

void SliderControl::ShowValue() { Send(TBM_SETPOS, TRUE, slider_.Value()); }

}  // namespace quorvale
