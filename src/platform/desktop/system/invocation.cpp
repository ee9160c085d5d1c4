#include "platform/desktop/system/invocation.h"

#include <charconv>
#include <cstddef>
#include <string_view>

#include "run/set_up.h"

namespace quorvale {
namespace {

constexpr std::string_view kRoot = "--root";
constexpr std::string_view kWindowId = "--window-id";

// 0 if it is not a number.
std::uint32_t WindowId(std::string_view text) {
  const bool is_hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (is_hexadecimal) text.remove_prefix(2);
  std::uint32_t id = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id, is_hexadecimal ? 16 : 10);
  return error == std::errc() && end == text.data() + text.size() ? id : 0;
}

}  // namespace

Invocation ReadInvocation(const std::vector<std::string>& arguments, const char* daemon_window) {
  Invocation invocation;
  const bool has_options = !arguments.empty() && arguments[0].starts_with("--");
  bool is_in_root = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (has_options && argument == kWindowId) {
      const std::string_view id = i + 1 < arguments.size() ? arguments[i + 1] : std::string_view();
      return {"/P " + std::to_string(WindowId(id)), {}};
    }
    if (has_options && argument == kRoot) is_in_root = true;
    if (i > 0) invocation.text += ' ';
    invocation.text += argument;
  }
  if (is_in_root) return {"/S", WindowId(daemon_window != nullptr ? daemon_window : "")};
  invocation.is_unknown = invocation.text.starts_with('-') && invocation.text.find(kSetUpSwitch) == std::string::npos;
  return invocation;
}

}  // namespace quorvale
