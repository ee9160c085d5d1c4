#pragma once

#include <cstddef>

namespace quorvale {

// No picture is read, decoded or held that takes more bytes than this.
inline constexpr std::size_t kPictureMemoryLimit = std::size_t{512} << 20U;

}  // namespace quorvale
