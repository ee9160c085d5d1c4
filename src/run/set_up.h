#pragma once

#include <string>
#include <vector>

#include "run/reported_steps.h"

namespace quorvale {

class FileSystem;
struct Process;

// Replaces each short name in the path by its long one and keeps a trailing separator. Returns `path` itself if there
// is no such file. An element whose lookup fails is left out; if the first lookup fails, the result is empty.
std::string GetLongPath(FileSystem& files, const std::string& path);

// The short (8.3) form of an existing file's path; empty if there is none.
std::string GetShortPath(FileSystem& files, const std::string& path);

inline constexpr char kSetUpSwitch[] = "/INSTALL";

// The directory after the switch in `text`, without surrounding blanks and quotes; empty if there is none.
std::string SetUpDirectory(const std::string& text);

// The steps of the set-up: store that directory, fill both play lists with the samples in it, make this program the
// system's saver and open the display settings. The directory should end in a separator; none is added. The steps keep
// a reference to `process`.
std::vector<ReportedStep> SetUpSteps(Process& process, const std::string& text);

}  // namespace quorvale
