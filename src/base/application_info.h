#pragma once

namespace quorvale {

// Facts about the program. The build sets the version and the path of the help.

inline constexpr char kCompanyName[] = "Halvern Inc.";
inline constexpr char kProductName[] = "Quorvale Customizable Screen Saver";
// The title of message boxes that have no title of their own.
inline constexpr char kApplicationTitle[] = "Quorvale";
inline constexpr char kWebAddress[] = "https://quorvale.example/";

extern const int kVersionMajor;
extern const int kVersionMinor;
extern const int kVersionRevision;

// The path of the help file; on Windows relative to the system directory. If it does not exist, the platform shows the
// same help as HTML, from the folder "help" beside the program or else from the folder of this file.
extern const char* const kHelpFile;
// The topics that the program opens by number.
inline constexpr unsigned kHelpTopicOptions = 7;

}  // namespace quorvale
