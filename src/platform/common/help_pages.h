#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quorvale {

// The full path of the page for a help command. The pages are in the first of the `folders`, each with a separator at
// its end, that has a contents page. A topic without a page leads to the contents. Fails with kNotFound if there are no
// pages.
std::string FindHelpPage(const std::vector<std::string>& folders,
                         const std::function<bool(const std::string& path)>& is_file, std::uint32_t command,
                         std::uintptr_t data);

}  // namespace quorvale
