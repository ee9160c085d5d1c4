#pragma once

#include <functional>

namespace quorvale::samples {

// Calls `work(begin, end)` for pieces that cover 0 to `count`, on all the cores there are. A piece must
// depend on nothing that another one writes: then the result is the same whatever the number of cores.
void InParallel(int count, const std::function<void(int begin, int end)>& work);

}  // namespace quorvale::samples
