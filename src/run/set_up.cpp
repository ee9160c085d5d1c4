#include "run/set_up.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "base/text.h"
#include "playlist/list_entry.h"
#include "playlist/media_collections.h"
#include "process/process.h"
#include "run/long_path.h"
#include "system/file_system.h"
#include "system/host_system.h"
#include "system/programs.h"

namespace quorvale {
namespace {

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
  return process.SystemDirectory + process.system.files.Syntax().separator + process.system.host.ProgramName() + ".SCR";
}

void ReportFailedSave(Application& app) {
  MessageBox box;
  box.text =
      "The sample pictures were not added: your settings can't be saved, and are what they were. The disk may be full, "
      "or another program may hold them.";
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
  const bool saved = process.Settings.SaveTogether([&] {
    process.options.SetText(kInstallPath, path);
    for (std::size_t i = 0; i < kSamples.size(); ++i) {
      process.Settings.SaveSetting(kSamples.at(i).section, kSamples.at(i).key, entries[i], kHkeyCurrentUser);
    }
  });
  if (!saved) ReportFailedSave(process.app);
}

}  // namespace

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
