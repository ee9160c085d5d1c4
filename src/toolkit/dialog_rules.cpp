#include "toolkit/dialog_rules.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "base/text.h"
#include "toolkit/form.h"
#include "toolkit/panels.h"

namespace quorvale {
namespace {

// The smallest readable letters.
constexpr double kLeastScale = 0.6;
constexpr char kEllipsis[] = "\xE2\x80\xA6";

std::string Ends(const std::string& text, std::size_t length, std::size_t kept) {
  const std::size_t head = kept / 2;
  return Left(text, head) + kEllipsis + Mid(text, length - (kept - head) + 1);
}

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

std::string HexOf(Colour colour) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text = "#";
  for (const unsigned shift : {4U, 0U, 12U, 8U, 20U, 16U}) text += kDigits[colour >> shift & 0xFU];
  return text;
}

std::string ColourName(const Label& swatch) {
  const Widget* const chooser = Predecessor(swatch);
  const std::string name = PlainCaption(chooser != nullptr ? chooser->Caption() : swatch.Design().tool_tip);
  return name.substr(0, name.find_last_not_of('.') + 1) + ": " + HexOf(swatch.BackColor());
}

constexpr unsigned kChannelShifts[] = {0, 8, 16};

// Relative luminance, from 0 to 1, by the guidelines for accessible web content.
double Luminance(Colour colour) {
  constexpr double kWeights[] = {0.2126, 0.7152, 0.0722};
  double luminance = 0;
  for (std::size_t i = 0; i < std::size(kChannelShifts); ++i) {
    const double channel = (colour >> kChannelShifts[i] & 0xFFU) / 255.0;
    luminance += kWeights[i] * (channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4));
  }
  return luminance;
}

bool Contrasts(Colour text, Colour background) {
  // The guidelines ask this of text in a usual size.
  constexpr double kLeastRatio = 4.5;
  const auto [darker, lighter] = std::minmax({Luminance(text), Luminance(background)});
  return (lighter + 0.05) / (darker + 0.05) >= kLeastRatio;
}

Colour Blend(Colour from, Colour to, unsigned part, unsigned whole) {
  Colour colour = 0;
  for (const unsigned shift : kChannelShifts) {
    const unsigned channel = ((from >> shift & 0xFFU) * (whole - part) + (to >> shift & 0xFFU) * part) / whole;
    colour |= channel << shift;
  }
  return colour;
}

}  // namespace

double LayoutScale(double wanted, double room, double needed) {
  return std::max(kLeastScale, std::min(wanted, room / needed));
}

std::string WithoutMiddle(const std::string& text, const std::function<bool(const std::string&)>& fits) {
  if (fits(text)) return text;
  const std::size_t length = Length(text);
  std::size_t fitting = 0;
  std::size_t too_long = length;
  while (fitting + 1 < too_long) {
    const std::size_t kept = fitting + (too_long - fitting) / 2;
    (fits(Ends(text, length, kept)) ? fitting : too_long) = kept;
  }
  return Ends(text, length, fitting);
}

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
  const auto* const swatch = dynamic_cast<const Label*>(&control);
  if (swatch != nullptr && swatch->HasBackColor()) return ColourName(*swatch);
  if (const auto* const label = dynamic_cast<const Label*>(Predecessor(control))) return PlainCaption(label->Caption());
  const Frame* const frame = control.Design().container;
  const bool is_framed = frame != nullptr && !frame->Caption().empty();
  return is_framed ? PlainCaption(frame->Caption()) : control.Design().tool_tip;
}

Colour ReadableColour(Colour wanted, Colour background) {
  constexpr unsigned kSteps = 16;
  const Colour end = Contrasts(kWhite, background) ? kWhite : kBlack;
  unsigned step = 0;
  while (step < kSteps && !Contrasts(Blend(wanted, end, step, kSteps), background)) ++step;
  return Blend(wanted, end, step, kSteps);
}

}  // namespace quorvale
