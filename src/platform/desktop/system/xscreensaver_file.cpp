#include "platform/desktop/system/xscreensaver_file.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "platform/desktop/system/settings_location.h"
#include "platform/desktop/system/start_program.h"
#include "platform/desktop/system/text_file.h"

namespace quorvale {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
// In the file's own writing: a line that goes on, and the end of a program.
constexpr std::string_view kContinued = "\\\n";
constexpr std::string_view kProgramEnd = "\\n";

std::string_view Strip(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Each with its line ends; a line that goes on is one with the next.
std::vector<std::string> Settings(const std::string& text) {
  std::vector<std::string> settings;
  bool goes_on = false;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
    if (!goes_on) settings.emplace_back();
    settings.back() += text.substr(start, end - start);
    goes_on = settings.back().ends_with(kContinued);
    start = end;
  }
  if (!settings.empty() && !settings.back().ends_with('\n')) settings.back() += '\n';
  return settings;
}

bool HasKey(std::string_view setting, std::string_view key) {
  const std::size_t colon = setting.find(':');
  return colon != std::string_view::npos && EqualsIgnoringCase(Strip(setting.substr(0, colon)), key);
}

std::string WithoutContinuations(std::string_view text) {
  std::string result(text);
  for (std::size_t at = result.find(kContinued); at != std::string::npos; at = result.find(kContinued, at)) {
    result.replace(at, kContinued.size(), " ");
  }
  return result;
}

std::string_view WithoutDirectory(std::string_view program) { return program.substr(program.rfind('/') + 1); }

// The name of the file that a line of the list starts: `- GL: "A name" program arguments`, of which only the
// program must be there.
std::string ProgramOf(std::string_view line) {
  const std::string flat = WithoutContinuations(line);
  std::string_view rest = Strip(flat);
  if (rest.starts_with('-')) rest = Strip(rest.substr(1));
  std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
  if (word.ends_with(':')) rest = Strip(rest.substr(word.size()));
  if (rest.starts_with('"')) {
    const std::size_t end = rest.find('"', 1);
    rest = end == std::string_view::npos ? std::string_view() : Strip(rest.substr(end + 1));
  }
  word = rest.substr(0, rest.find_first_of(kBlanks));
  return std::string(WithoutDirectory(word));
}

// The programs of the list but that one, written as they were.
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

// From the first line on that holds anything.
std::string_view FromFirstProgram(std::string_view list) {
  std::size_t first = 0;
  while (first < list.size() &&
         (kBlanks.find(list[first]) != std::string_view::npos || list.substr(first).starts_with(kContinued))) {
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
  // The list's last line may go on into nothing.
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
    if (HasKey(setting, "programs")) {
      result += ProgramsSetting(std::string_view(setting).substr(setting.find(':') + 1), command);
      programs.clear();
    } else if (HasKey(setting, "mode")) {
      result += std::exchange(mode, {});
    } else if (HasKey(setting, "selected")) {
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
  const std::string target = BehindLinks(file);
  const std::optional<std::string> before = ReadTextFile(target);
  if (!before) return false;
  const std::string after = SelectSaver(*before, command);
  if (after == *before) return true;
  if (!before->empty() && !ReplaceTextFile(file + ".before-quorvale", *before)) return false;
  return ReplaceTextFile(target, after);
}

bool BecomeSaverOfUser(const std::string& program_directory, const std::string& program_name) {
  if (!IsInstalled("xscreensaver")) return true;
  // What a package has installed is found wherever XScreenSaver looks.
  const std::string program = program_directory == "/usr/bin" ? program_name : program_directory + '/' + program_name;
  if (program.find(' ') != std::string::npos) return false;
  return SelectSaverOfUser(HomeDirectory(), program + " --root");
}

}  // namespace quorvale
