#pragma once

#include <functional>

namespace quorvale {

// One pass of the event queue: everything pending runs.
void RunPass();

// Waits for events and runs them until `over`, which is asked after each, or until the program is to end.
void RunEventsUntil(const std::function<bool()>& over);

// Runs events until `EndEventLoop`. Gives the program's exit code.
int RunEventLoop();
void EndEventLoop();

}  // namespace quorvale
