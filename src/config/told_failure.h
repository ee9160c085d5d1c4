#pragma once

#include <functional>
#include <string>

namespace quorvale {

class Application;

// Runs one statement of `procedure`. Shows a failure in a box that names the procedure, so that the caller can go on
// with the next statement.
void TellFailure(Application& app, const std::string& procedure, const std::function<void()>& statement);

}  // namespace quorvale
