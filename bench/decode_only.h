#pragma once

#include <string>

namespace quorvale {

// Decodes a JPEG picture at that fraction of its size into one row of memory: nothing but decoding.
void DecodeOnly(const std::string& path, int divisor);

}  // namespace quorvale
