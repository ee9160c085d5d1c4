#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

bool IsFile(const std::string& path);

// The page that a help command asks for, as a full path. `file` is the help file, beside which or beside the
// program the folder with the pages is looked for. A topic without a page of its own gives the contents.
// Fails with kNotFound when there are no pages.
std::string FindHelpPage(const std::string& file, std::uint32_t command, std::uintptr_t data);

}  // namespace quorvale
