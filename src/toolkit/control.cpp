#include "toolkit/control.h"

#include <utility>

#include "toolkit/form.h"

namespace quorvale {

Control::Control(Form& parent, std::string name) : parent_(parent), name_(std::move(name)) {
  parent.controls_.push_back(this);
}

Application& Control::App() const { return parent_.App(); }

void Control::RequireLoaded() const { parent_.RequireLoaded(); }

}  // namespace quorvale
