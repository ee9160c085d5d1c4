#pragma once

namespace quorvale {

class Form;

// Moves the form to the middle of the screen.
void CenterForm(Form& form);

}  // namespace quorvale
