#pragma once

#include <string>
#include <string_view>

namespace quorvale {

// Converts text in Windows code page 1252 to UTF-8. The five bytes that it does not define become the control
// characters with the same numbers.
std::string FromCodePage1252(std::string_view bytes);

}  // namespace quorvale
