#pragma once

namespace quorvale {

// Facts about the program; its name is in settings/version_record.h. The build sets the version and the path of the
// help.
extern const int kVersionMajor;
extern const int kVersionMinor;
extern const int kVersionRevision;

inline constexpr char kWebAddress[] = "https://quorvale.example/";

// The path of the help file; on Windows relative to the system directory. If it does not exist, the platform shows the
// same help as HTML, from the folder "help" beside the program or else from the folder of this file.
extern const char* const kHelpFile;
// The topics that the program opens by number.
inline constexpr unsigned kHelpTopicOptions = 7;

}  // namespace quorvale
