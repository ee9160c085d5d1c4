#include "platform/desktop/system/ini_file.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "platform/desktop/system/files.h"

namespace quorvale {
namespace {

// The name of the section that begins with `line`, if one does.
std::optional<std::string_view> SectionOf(std::string_view line) {
  line = TrimWhiteSpace(line);
  const std::size_t end = line.find(']');
  if (!line.starts_with('[') || end == std::string_view::npos) return std::nullopt;
  return TrimWhiteSpace(line.substr(1, end - 1));
}

bool HasKey(std::string_view line, const std::string& key) {
  const std::size_t equals = line.find('=');
  return equals != std::string_view::npos && EqualsIgnoringCase(TrimWhiteSpace(line.substr(0, equals)), key);
}

}  // namespace

std::string SetIniValue(const std::string& text, const std::string& section, const std::string& key,
                        const std::string& value) {
  std::vector<std::string> lines;
  for (std::string_view rest = text; !rest.empty();) lines.emplace_back(CutLine(rest));
  const bool has_returns = !lines.empty() && lines.front().ends_with("\r\n");
  const std::string line_end = has_returns ? "\r\n" : "\n";
  if (!lines.empty() && !lines.back().ends_with('\n')) lines.back() += line_end;

  const auto opens_section = [](const std::string& line) { return SectionOf(line).has_value(); };
  const auto start = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
    const auto name = SectionOf(line);
    return name && EqualsIgnoringCase(*name, section);
  });
  const std::string new_line = key + "=" + value + line_end;
  if (start == lines.end()) {
    lines.push_back("[" + section + "]" + line_end);
    lines.push_back(new_line);
  } else {
    const auto end = std::find_if(start + 1, lines.end(), opens_section);
    const auto line = std::find_if(start + 1, end, [&](const std::string& l) { return HasKey(l, key); });
    if (line != end) {
      *line = line->substr(0, line->find('=') + 1) + value + line_end;
    } else {
      // Blank lines at a section's end separate it from the next.
      auto last = end;
      while (TrimWhiteSpace(*(last - 1)).empty()) --last;
      lines.insert(last, new_line);
    }
  }
  std::string result;
  for (const std::string& line : lines) result += line;
  return result;
}

bool WriteIniValue(const std::string& path, const std::string& section, const std::string& key,
                   const std::string& value) {
  if ((section + key + value).find_first_of("\r\n") != std::string::npos) return false;
  const std::optional<std::string> text = ReadTextFile(path);
  return text && ReplaceTextFile(path, SetIniValue(*text, section, key, value));
}

}  // namespace quorvale
