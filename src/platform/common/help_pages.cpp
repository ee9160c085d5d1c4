#include "platform/common/help_pages.h"

#include <algorithm>

#include "base/failure.h"
#include "system/programs.h"

namespace quorvale {
namespace {

constexpr char kContentsPage[] = "index.html";

std::string PageName(std::uint32_t command, std::uintptr_t data) {
  if (command == kHelpContext) return "topic-" + std::to_string(data) + ".html";
  return command == kHelpPartialKey ? "search.html" : kContentsPage;
}

}  // namespace

std::string FindHelpPage(const std::vector<std::string>& folders,
                         const std::function<bool(const std::string& path)>& is_file, std::uint32_t command,
                         std::uintptr_t data) {
  const auto folder =
      std::ranges::find_if(folders, [&](const std::string& candidate) { return is_file(candidate + kContentsPage); });
  if (folder == folders.end()) throw Failure(FailureNumber::kNotFound, "The help files are not installed", "WinHelp");
  const std::string page = *folder + PageName(command, data);
  return is_file(page) ? page : *folder + kContentsPage;
}

}  // namespace quorvale
