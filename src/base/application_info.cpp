#include "base/application_info.h"

namespace quorvale {

const int kVersionMajor = QUORVALE_VERSION_MAJOR;
const int kVersionMinor = QUORVALE_VERSION_MINOR;
const int kVersionRevision = QUORVALE_VERSION_PATCH;

const char* const kHelpFile = QUORVALE_HELP_FILE;

}  // namespace quorvale
