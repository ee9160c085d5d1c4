#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/win32/system/modules.h"
#include "platform/win32/windows_api.h"

namespace quorvale {

// A temporary directory beside the test program. Removed with the object.
class WorkDirectory {
 public:
  WorkDirectory()
      : path_(ProgramPath() + "." + std::to_string(GetTickCount64()) + "." + std::to_string(++made_) + "\\") {
    std::filesystem::create_directories(path_);
  }
  ~WorkDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  WorkDirectory(const WorkDirectory&) = delete;
  WorkDirectory& operator=(const WorkDirectory&) = delete;

  // Ends with a separator.
  const std::string& Path() const { return path_; }
  std::string Path(const std::string& name) const { return path_ + name; }

  std::string Write(const std::string& name, const std::string& content) const {
    std::ofstream(std::filesystem::path(Path(name)), std::ios::binary) << content;
    return Path(name);
  }
  std::string MakeDirectory(const std::string& name) const {
    CreateDirectoryA(Path(name).c_str(), nullptr);
    return Path(name);
  }

 private:
  inline static int made_ = 0;
  std::string path_;
};

}  // namespace quorvale
