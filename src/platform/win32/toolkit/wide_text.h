#pragma once

#include <string>
#include <string_view>

namespace quorvale {

// Between the program's text and the system's 16-bit characters. The code page is the process's own, the
// same as that of the system's narrow calls: UTF-8, by the manifest, wherever the system can do that.
std::wstring ToWide(std::string_view text);
std::string FromWide(std::wstring_view text);

}  // namespace quorvale
