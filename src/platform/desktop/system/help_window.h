#pragma once

#include <cstdint>
#include <string>

#include "platform/desktop/system/file_descriptor.h"

namespace quorvale {

// The page that a help command asks for, as a full path. `file` is the help file, beside which or beside the
// program the folder with the pages is looked for. A topic without a page of its own gives the contents.
// Fails with kNotFound when there are no pages.
std::string FindHelpPage(const std::string& file, std::uint32_t command, std::uintptr_t data);

// The program that shows the help in a window of its own. It is a process of its own, so that the modal windows
// of this one don't block it.
class HelpWindow {
 public:
  // Shows the page, in the window that is open already where there is one. Fails with kNotFound when the
  // program is missing.
  void Show(const std::string& page);

 private:
  bool Ask(const std::string& page) const;

  FileDescriptor pages_;
};

}  // namespace quorvale
