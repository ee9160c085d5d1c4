#pragma once

#include <cstdint>
#include <string>

namespace quorvale {

bool IsFile(const std::string& path);

// The full path of a help file: the program is built with one below the directory of Windows, which need not be
// C:\WINDOWS.
std::string HelpFilePath(const std::string& file);

// The page that a help command asks for, as a full path. The pages are in the folder "help" beside the program,
// in the folder "Quorvale" beside the help file `file`, or beside that file. A topic without a page of its own gives
// the contents. Fails with kNotFound when there are no pages.
std::string FindHelpPage(const std::string& file, std::uint32_t command, std::uintptr_t data);

}  // namespace quorvale
