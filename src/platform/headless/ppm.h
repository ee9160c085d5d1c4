#pragma once

#include <iosfwd>

#include "toolkit/surface.h"

namespace quorvale {

// Writes what a surface shows as a portable pixmap, for a look at it: give it a binary file stream.
void WritePpm(const Surface& surface, std::ostream& out);

}  // namespace quorvale
