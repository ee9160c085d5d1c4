#pragma once

#include <string>

namespace quorvale {

class Widget;

// The text that a caption shows, without the marks of access keys.
std::string PlainCaption(const std::string& caption);

// What a screen reader calls a control: its caption, or else that of the label before it in the tab order, or of the
// frame around it, or its tool tip.
std::string SpokenName(const Widget& control);

}  // namespace quorvale
