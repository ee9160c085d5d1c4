#include "platform/headless/ppm.h"

#include <fstream>

#include "base/failure.h"

namespace quorvale {

void WritePpm(const Surface& surface, const std::string& path) {
  std::ofstream file(path, std::ios::binary);
  file << "P6\n" << surface.Width() << " " << surface.Height() << "\n255\n";
  for (int y = 0; y < surface.Height(); ++y) {
    for (int x = 0; x < surface.Width(); ++x) {
      const Pixel pixel = surface.At(x, y);
      for (const unsigned shift : {16U, 8U, 0U}) file.put(static_cast<char>(pixel >> shift & 0xFFU));
    }
  }
  file.close();
  if (!file) throw Failure(FailureNumber::kUnwritable, "Can't be written: " + path, "WritePpm");
}

}  // namespace quorvale
