#include "toolkit/spoken_name.h"

#include <cstddef>

#include "toolkit/form.h"
#include "toolkit/panels.h"

namespace quorvale {
namespace {

// Frames and labels that only show a colour may come between a label and its control.
bool IsPassedOver(const Widget& control) {
  if (dynamic_cast<const Frame*>(&control) != nullptr) return true;
  return dynamic_cast<const Label*>(&control) != nullptr && control.Caption().empty();
}

const Widget* Predecessor(const Widget& control) {
  const Widget* last = nullptr;
  control.Parent().ForEach<Widget>([&](const Widget& other) {
    const int index = other.Design().tab_index;
    if (index < 0 || index >= control.Design().tab_index || IsPassedOver(other)) return;
    if (last == nullptr || last->Design().tab_index < index) last = &other;
  });
  return last;
}

}  // namespace

std::string PlainCaption(const std::string& caption) {
  std::string text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    text += caption[i];
  }
  return text;
}

std::string SpokenName(const Widget& control) {
  if (!control.Caption().empty()) return PlainCaption(control.Caption());
  if (const auto* const label = dynamic_cast<const Label*>(Predecessor(control))) return PlainCaption(label->Caption());
  const Frame* const frame = control.Design().container;
  const bool is_framed = frame != nullptr && !frame->Caption().empty();
  return is_framed ? PlainCaption(frame->Caption()) : control.Design().tool_tip;
}

}  // namespace quorvale
