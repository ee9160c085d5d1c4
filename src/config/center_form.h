#pragma once

namespace quorvale {

class Form;

// Centres the form on the primary monitor.
void CenterForm(Form& form);

}  // namespace quorvale
