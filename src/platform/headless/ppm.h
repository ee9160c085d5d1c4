#pragma once

#include <string>

#include "toolkit/surface.h"

namespace quorvale {

// Writes what a surface shows to a portable pixmap file, for a look at it. Fails with kUnwritable.
void WritePpm(const Surface& surface, const std::string& path);

}  // namespace quorvale
