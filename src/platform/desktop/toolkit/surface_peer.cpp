#include "platform/desktop/toolkit/surface_peer.h"

#include <Qt>
#include <algorithm>
#include <array>
#include <utility>

namespace quorvale {
namespace {

constexpr std::array<std::pair<int, int>, 28> kCodes{{
    {Qt::Key_Backspace, 0x08}, {Qt::Key_Tab, 0x09},    {Qt::Key_Backtab, 0x09},  {Qt::Key_Return, 0x0D},
    {Qt::Key_Enter, 0x0D},     {Qt::Key_Shift, 0x10},  {Qt::Key_Control, 0x11},  {Qt::Key_Alt, 0x12},
    {Qt::Key_AltGr, 0x12},     {Qt::Key_Pause, 0x13},  {Qt::Key_CapsLock, 0x14}, {Qt::Key_Escape, 0x1B},
    {Qt::Key_Space, 0x20},     {Qt::Key_PageUp, 0x21}, {Qt::Key_PageDown, 0x22}, {Qt::Key_End, 0x23},
    {Qt::Key_Home, 0x24},      {Qt::Key_Left, 0x25},   {Qt::Key_Up, 0x26},       {Qt::Key_Right, 0x27},
    {Qt::Key_Down, 0x28},      {Qt::Key_Print, 0x2C},  {Qt::Key_Insert, 0x2D},   {Qt::Key_Delete, 0x2E},
    {Qt::Key_Meta, 0x5B},      {Qt::Key_Menu, 0x5D},   {Qt::Key_NumLock, 0x90},  {Qt::Key_ScrollLock, 0x91},
}};

constexpr int kVirtualF1 = 0x70;

}  // namespace

QEvent::Type PresentEvent() {
  static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
  return type;
}

int VirtualKeyCode(int qt_key) {
  if ((qt_key >= Qt::Key_0 && qt_key <= Qt::Key_9) || (qt_key >= Qt::Key_A && qt_key <= Qt::Key_Z)) return qt_key;
  if (qt_key >= Qt::Key_F1 && qt_key <= Qt::Key_F24) return kVirtualF1 + (qt_key - Qt::Key_F1);
  const auto* const found =
      std::find_if(kCodes.begin(), kCodes.end(), [qt_key](const auto& code) { return code.first == qt_key; });
  return found == kCodes.end() ? 0 : found->second;
}

}  // namespace quorvale
