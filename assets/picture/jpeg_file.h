#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorvale::samples {

// Writes rows of red, green, blue bytes. Throws std::runtime_error if the file can't be opened;
// a failure while writing ends the program with a message.
void WriteJpeg(const std::string& path, int width, int height, const std::vector<std::uint8_t>& rgb, int quality);

}  // namespace quorvale::samples
