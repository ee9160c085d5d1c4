#include "platform/desktop/system/xscreensaver_file.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/paths.h"
#include "base/text.h"
#include "platform/desktop/system/files.h"
#include "platform/desktop/system/start_program.h"

namespace quorvale {
namespace {

// A backslash at a line's end continues the line. A program in the list ends in the two characters "\n".
constexpr std::string_view kContinued = "\\\n";
constexpr std::string_view kProgramEnd = "\\n";

// The settings with their continuation lines and line ends.
std::vector<std::string> Settings(std::string_view text) {
  std::vector<std::string> settings;
  bool is_continued = false;
  while (!text.empty()) {
    if (!is_continued) settings.emplace_back();
    settings.back() += CutLine(text);
    is_continued = settings.back().ends_with(kContinued);
  }
  if (!settings.empty() && !settings.back().ends_with('\n')) settings.back() += '\n';
  return settings;
}

bool IsSetting(std::string_view setting, std::string_view key) {
  const std::size_t colon = setting.find(':');
  return colon != std::string_view::npos && EqualsIgnoringCase(TrimWhiteSpace(setting.substr(0, colon)), key);
}

std::string WithoutContinuations(std::string_view text) {
  std::string result(text);
  for (std::size_t at = result.find(kContinued); at != std::string::npos; at = result.find(kContinued, at)) {
    result.replace(at, kContinued.size(), " ");
  }
  return result;
}

std::string_view WithoutDirectory(std::string_view program) { return program.substr(NameStart(program, "/")); }

// The file name of the program in a line of the list. The full form is `- GL: "A name" program arguments`; all but the
// program may be missing.
std::string ProgramOf(std::string_view line) {
  const std::string flat = WithoutContinuations(line);
  std::string_view rest = TrimWhiteSpace(flat);
  if (rest.starts_with('-')) rest = TrimWhiteSpace(rest.substr(1));
  std::string_view word = rest.substr(0, rest.find_first_of(kWhiteSpace));
  if (word.ends_with(':')) rest = TrimWhiteSpace(rest.substr(word.size()));
  if (rest.starts_with('"')) {
    const std::size_t end = rest.find('"', 1);
    rest = end == std::string_view::npos ? std::string_view() : TrimWhiteSpace(rest.substr(end + 1));
  }
  word = rest.substr(0, rest.find_first_of(kWhiteSpace));
  return std::string(WithoutDirectory(word));
}

// The list without `program`; the other lines are unchanged.
std::string OtherPrograms(std::string_view list, const std::string& program) {
  std::string others;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(kProgramEnd), list.size());
    const std::size_t next = std::min(end + kProgramEnd.size(), list.size());
    if (ProgramOf(list.substr(0, end)) != program) others += list.substr(0, next);
    list.remove_prefix(next);
  }
  return others;
}

// The list from its first line that is not blank.
std::string_view FromFirstProgram(std::string_view list) {
  std::size_t first = 0;
  while (first < list.size() &&
         (kWhiteSpace.find(list[first]) != std::string_view::npos || list.substr(first).starts_with(kContinued))) {
    ++first;
  }
  if (first == list.size()) return {};
  const std::size_t line = list.rfind('\n', first);
  return line == std::string_view::npos ? list : list.substr(line + 1);
}

std::string ProgramsSetting(std::string_view list, const std::string& command) {
  const std::string program(WithoutDirectory(command.substr(0, command.find(' '))));
  const std::string others = OtherPrograms(list, program);
  const std::string_view rest = FromFirstProgram(others);
  std::string setting = "programs:\t" + command + "\t" + std::string(kProgramEnd);
  if (!rest.empty()) setting += std::string(kContinued) + std::string(rest);
  while (setting.ends_with('\n')) setting.pop_back();
  // The last line may end in a continuation that nothing follows.
  if (setting.ends_with('\\')) setting.pop_back();
  return setting + '\n';
}

bool IsPlain(const std::string& command) {
  return std::all_of(command.begin(), command.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) != 0 || byte >= 0x80 || std::string_view(" /._-+@,").find(c) != std::string_view::npos;
  });
}

}  // namespace

std::string SelectSaver(const std::string& text, const std::string& command) {
  std::string programs = ProgramsSetting("", command);
  std::string mode = "mode:\t\tone\n";
  std::string selected = "selected:\t0\n";
  std::string result;
  for (const std::string& setting : Settings(text)) {
    if (IsSetting(setting, "programs")) {
      result += ProgramsSetting(std::string_view(setting).substr(setting.find(':') + 1), command);
      programs.clear();
    } else if (IsSetting(setting, "mode")) {
      result += std::exchange(mode, {});
    } else if (IsSetting(setting, "selected")) {
      result += std::exchange(selected, {});
    } else {
      result += setting;
    }
  }
  return result + mode + selected + programs;
}

bool SelectSaverOfUser(const std::string& home, const std::string& command) {
  if (home.empty() || !IsPlain(command)) return false;
  const std::string file = home + "/.xscreensaver";
  const std::optional<std::string> before = ReadTextFile(file);
  if (!before) return false;
  const std::string after = SelectSaver(*before, command);
  if (after == *before) return true;
  if (!before->empty() && !ReplaceTextFile(file + ".before-quorvale", *before)) return false;
  return ReplaceTextFile(file, after);
}

bool BecomeSaverOfUser(const std::string& program_directory, const std::string& program_name) {
  if (!IsInstalled("xscreensaver")) return true;
  // XScreenSaver finds an installed program by its name.
  const std::string program = program_directory == "/usr/bin" ? program_name : program_directory + '/' + program_name;
  if (program.find(' ') != std::string::npos) return false;
  return SelectSaverOfUser(HomeDirectory(), program + " --root");
}

}  // namespace quorvale
