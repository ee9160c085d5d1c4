#include "platform/win32/widgets/label_peer.h"

#include "platform/win32/system/system_text.h"
#include "platform/win32/widgets/dialog_theme.h"
#include "platform/win32/widgets/dialog_window.h"
#include "toolkit/dialog_rules.h"

namespace quorvale {
namespace {

constexpr float kPointStep = 0.75F;
// The smallest size that is still readable.
constexpr float kLeastPoints = 6.75F;

constexpr UINT kBetweenWords = DT_WORDBREAK | DT_NOPREFIX;
constexpr UINT kAnywhere = kBetweenWords | DT_EDITCONTROL;
constexpr UINT kOneLine = DT_SINGLELINE | DT_NOPREFIX;

// SS_NOTIFY, or the label gets no mouse messages and shows no tool tip.
ControlKind KindOf(const Label& label) {
  const DWORD wrapped = label.Style().one_line ? SS_LEFTNOWORDWRAP : SS_LEFT;
  return {L"STATIC", (label.Style().centred ? SS_CENTER : wrapped) | SS_NOTIFY,
          label.Style().border ? WS_EX_CLIENTEDGE : 0U};
}

}  // namespace

LabelControl::LabelControl(DialogWindow& dialog, Label& label)
    : ControlPeer(dialog, label, KindOf(label)), label_(label) {
  Fit();
}

void LabelControl::Refresh(WidgetAspect aspect) {
  ControlPeer::Refresh(aspect);
  if (aspect == WidgetAspect::kPlace || aspect == WidgetAspect::kCaption) Fit();
}

void LabelControl::FollowScale() {
  ControlPeer::FollowScale();
  Fit();
}

LRESULT LabelControl::OnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message != WM_PAINT || drawn_.empty()) return Default(message, first, second);
  Paint();
  return 0;
}

HBRUSH LabelControl::OnColour(HDC context) {
  if (!label_.HasBackColor() && !label_.HasForeColor()) return nullptr;
  const COLORREF background = label_.HasBackColor() ? label_.BackColor() : GetSysColor(COLOR_BTNFACE);
  SetBkColor(context, background);
  SetTextColor(context,
               label_.HasForeColor() ? ReadableColour(label_.ForeColor(), background) : GetSysColor(COLOR_BTNTEXT));
  background_.reset(CreateSolidBrush(background));
  return background_.get();
}

void LabelControl::Fit() {
  const std::string text = PlainCaption(label_.Caption());
  const LabelStyle& style = label_.Style();
  const UINT wrapping = style.one_line ? kOneLine : kBetweenWords;
  drawn_.clear();
  float points = style.points > 0 ? style.points : kDefaultPoints;
  while (points - kPointStep >= kLeastPoints && !Fits(Dialog().FontOf(points, style.bold), text, wrapping)) {
    points -= kPointStep;
  }
  const HFONT font = Dialog().FontOf(points, style.bold);
  if (!Fits(font, text, wrapping)) {
    const UINT last_resort = style.one_line ? kOneLine : kAnywhere;
    drawn_ = WithoutMiddle(text, [&](const std::string& shown) { return Fits(font, shown, last_resort); });
  }
  Dialog().SetToolTip(Window(), drawn_.empty() || drawn_ == text ? label_.Design().tool_tip : text);
  Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

bool LabelControl::Fits(HFONT font, const std::string& text, UINT wrapping) const {
  if (text.empty()) return true;
  RECT place{};
  GetClientRect(Window(), &place);
  const MemoryContext context;
  context.Select(font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(context.Get(), &metrics);
  RECT needed = place;
  const std::wstring wide = ToWide(text);
  DrawTextW(context.Get(), wide.c_str(), static_cast<int>(wide.size()), &needed, wrapping | DT_CALCRECT);
  // A single line may lose its leading and descent: the letters themselves still fit.
  const LONG one_line = metrics.tmHeight - metrics.tmInternalLeading - metrics.tmDescent;
  const LONG height = needed.bottom <= metrics.tmHeight ? one_line : needed.bottom;
  return needed.right <= place.right && height <= place.bottom;
}

void LabelControl::Paint() const {
  PAINTSTRUCT paint{};
  const HDC context = BeginPaint(Window(), &paint);
  const int state = SaveDC(context);
  RECT place{};
  GetClientRect(Window(), &place);
  SelectObject(context, reinterpret_cast<HFONT>(Send(WM_GETFONT)));
  auto* const brush = reinterpret_cast<HBRUSH>(SendMessageW(
      GetParent(Window()), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context), reinterpret_cast<LPARAM>(Window())));
  if (brush != nullptr) FillRect(context, &place, brush);
  SetBkMode(context, TRANSPARENT);
  const std::wstring wide = ToWide(drawn_);
  DrawTextW(context, wide.c_str(), static_cast<int>(wide.size()), &place,
            (label_.Style().one_line ? kOneLine : kAnywhere) | (label_.Style().centred ? DT_CENTER : 0U));
  RestoreDC(context, state);
  EndPaint(Window(), &paint);
}

}  // namespace quorvale
