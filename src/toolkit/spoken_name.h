#pragma once

#include <string>

namespace quorvale {

class Widget;

// The caption's visible text, without the "&" of access keys.
std::string PlainCaption(const std::string& caption);

// The name of a control for screen readers: its caption, else the caption of the label before it in tab order, else of
// its frame, else its tool tip.
std::string SpokenName(const Widget& control);

}  // namespace quorvale
