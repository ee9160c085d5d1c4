#pragma once

#include <functional>
#include <string>

namespace quorvale {

class Application;

// Runs `statement` of a procedure. A failure is told in a box that names the procedure, and whoever called goes on
// with the next statement.
void TellFailure(Application& app, const std::string& procedure, const std::function<void()>& statement);

}  // namespace quorvale
