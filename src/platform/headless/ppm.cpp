#include "platform/headless/ppm.h"

#include <ostream>

namespace quorvale {

void WritePpm(const Surface& surface, std::ostream& out) {
  out << "P6\n" << surface.Width() << " " << surface.Height() << "\n255\n";
  for (int y = 0; y < surface.Height(); ++y) {
    for (int x = 0; x < surface.Width(); ++x) {
      const Pixel pixel = surface.At(x, y);
      for (const unsigned shift : {16U, 8U, 0U}) out.put(static_cast<char>(pixel >> shift & 0xFFU));
    }
  }
}

}  // namespace quorvale
