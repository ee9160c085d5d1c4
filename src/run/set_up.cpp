#include "run/set_up.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "base/failure.h"
#include "base/strings.h"
#include "base/text.h"
#include "playlist/list_entry.h"
#include "playlist/media_collections.h"
#include "process/process.h"
#include "system/file_system.h"
#include "system/host_system.h"
#include "system/programs.h"

namespace quorvale {
namespace {

constexpr int kAnyEntry = kAttributeHidden | kAttributeSystem | kAttributeDirectory | kAttributeArchive;
constexpr std::uint32_t kShortPathBuffer = 250;

// No value if the search itself failed.
std::optional<std::string> Lookup(FileSystem& files, const std::string& path) {
  try {
    return files.FindFile(path, kAnyEntry);
  } catch (const Failure&) {
    return std::nullopt;
  }
}

// Consecutive separators count as one. Drops the leading separator of a root path too.
void DropLastSeparators(std::string& path, const PathSyntax& syntax) {
  while (!path.empty() && syntax.IsSeparator(path.back())) path.pop_back();
}

struct Sample {
  const char* section;
  const char* key;
  const char* name;
};

constexpr std::array<Sample, 5> kSamples = {{
    {kPictureSection, "File0", "Sample1.jpg"},
    {kPictureSection, "File1", "Sample2.jpg"},
    {kPictureSection, "File2", "Sample3.jpg"},
    {kSoundSection, "File0", "Camera.wav"},
    {kSoundSection, "File1", "SlideProjector.wav"},
}};

// Typed into the list of savers to select this program: the first letters of its name.
constexpr char kProductKeys[] = "Qu";

// Not the path of the running program: the system looks for savers in its own directory.
std::string SaverFilePath(Process& process) {
  return process.system_directory + process.system.files.Syntax().separator + process.system.host.ProgramName() +
         ".SCR";
}

void ReportFailedSave(Application& app) {
  MessageBox box;
  box.text = strings::set_up::kSamplesNotAdded;
  box.icon = MessageBoxIcon::kExclamation;
  app.ShowMessageBox(box);
}

// One transaction, so that an interrupted set-up does not leave half a list.
void StoreSamples(Process& process, const std::string& path) {
  std::vector<std::string> entries;
  entries.reserve(kSamples.size());
  for (const Sample& sample : kSamples) {
    entries.push_back(MakeListEntry(sample.name, GetLongPath(process.system.files, path)));
  }
  const bool saved = process.settings.SaveTogether([&] {
    process.options.SetText(kInstallPath, path);
    for (std::size_t i = 0; i < kSamples.size(); ++i) {
      process.settings.SaveSetting(kSamples.at(i).section, kSamples.at(i).key, entries[i], kHkeyCurrentUser);
    }
  });
  if (!saved) ReportFailedSave(process.app);
}

}  // namespace

std::string GetLongPath(FileSystem& files, const std::string& path) {
  if (path.empty()) return {};
  const PathSyntax syntax = files.Syntax();
  const bool closed = syntax.IsSeparator(path.back());
  std::string ending = closed ? std::string(1, path.back()) : std::string();
  std::string rest = path;
  DropLastSeparators(rest, syntax);

  const std::optional<std::string> last = Lookup(files, rest);
  if (!last) return ending;
  std::string result = *last;
  std::size_t name = NameStart(rest, syntax);
  if (name == 0) return result + ending;
  if (result.empty()) return path;

  while (true) {
    rest.resize(name - 1);
    DropLastSeparators(rest, syntax);
    name = NameStart(rest, syntax);
    if (name == 0) break;
    if (const std::optional<std::string> found = Lookup(files, rest)) result.insert(0, *found + syntax.separator);
  }
  // Only the drive is left, or nothing. It has no long form.
  return rest + syntax.separator + result + ending;
}

std::string GetShortPath(FileSystem& files, const std::string& path) {
  return files.GetShortPathName(path, kShortPathBuffer);
}

// Skips the switch and the character after it.
std::string SetUpDirectory(const std::string& text) {
  const std::size_t behind = text.find(kSetUpSwitch);
  if (behind == std::string::npos) return {};
  std::string path = Trim(Mid(std::string_view(text).substr(behind + std::string_view(kSetUpSwitch).size()), 2));
  const bool is_quoted = path.size() >= 2 && path.front() == '"' && path.back() == '"';
  return is_quoted ? path.substr(1, path.size() - 2) : path;
}

std::vector<ReportedStep> SetUpSteps(Process& process, const std::string& text) {
  const std::string path = SetUpDirectory(text);
  std::vector<ReportedStep> steps;
  steps.emplace_back([&process, path] { StoreSamples(process, path); });
  steps.emplace_back([&process] {
    const std::string saver = GetShortPath(process.system.files, SaverFilePath(process));
    process.system.files.WritePrivateProfileString("boot", "SCRNSAVE.EXE", saver, "SYSTEM.INI");
  });
  steps.emplace_back([&process] { process.system.programs.OpenDisplaySettings(); });
  steps.emplace_back([&process] { process.system.programs.SendKeys(kProductKeys); });
  return steps;
}

}  // namespace quorvale
