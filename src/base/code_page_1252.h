#pragma once

#include <string>
#include <string_view>

namespace quorvale {

// Text of Windows' western code page as UTF-8. The five bytes that it leaves open become the control
// characters of the same numbers.
std::string FromCodePage1252(std::string_view bytes);

}  // namespace quorvale
