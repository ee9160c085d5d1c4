#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quorvale {

// The page that a help command asks for, as a full path. `folders` are the places where the pages may be, the first
// choice first, each with its separator at the end. A topic without a page of its own gives the contents. Fails with
// kNotFound when there are no pages.
std::string FindHelpPage(const std::vector<std::string>& folders,
                         const std::function<bool(const std::string& path)>& is_file, std::uint32_t command,
                         std::uintptr_t data);

}  // namespace quorvale
