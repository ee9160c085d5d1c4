#pragma once

namespace quorvale {

// What the program says of itself beside its name, which stands in settings/version_record.h. The version and
// the place of the help come from the build.
extern const int kVersionMajor;
extern const int kVersionMinor;
extern const int kVersionRevision;

inline constexpr char kLegalNotice[] = "Copyright (C) Halvern Inc. and contributors";
inline constexpr char kWebAddress[] = "https://quorvale.example/";

// The full path of the help file; on Windows it counts from the directory of the system. Where it is not there, the
// platform shows the same help as HTML: that in the folder "help" beside the program, or else that in the folder of
// this file.
extern const char* const kHelpFile;
// The topics that the program opens by number.
inline constexpr unsigned kHelpTopicOptions = 7;

}  // namespace quorvale
