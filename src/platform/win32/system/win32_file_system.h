#pragma once

#include "system/file_system.h"

namespace quorvale {

// Searches, reads and writes use the system's wide calls. The narrow ones can't return a name that takes more than
// 259 bytes in UTF-8.
class Win32FileSystem : public FileSystem {
 public:
  void EnumerateFiles(const std::string& directory, const std::vector<std::string>& patterns,
                      const std::function<void(const std::string& name)>& found) override;
  // A folder with the hidden attribute is hidden. The system attribute alone marks those with an icon of their own.
  std::vector<std::string> EnumerateFolder(const std::string& directory, const std::vector<std::string>& patterns,
                                           const std::function<void(const std::string& name)>& found) override;
  DirectoryId IdOf(const std::string& directory) override;
  std::vector<std::optional<std::int64_t>> DatesOf(const std::vector<std::string>& paths) override;
  std::string FindFile(const std::string& path, int attributes) override;
  std::string GetShortPathName(const std::string& path, std::uint32_t size) override;
  std::string ReadFile(const std::string& path, std::size_t most) override;
  void WriteFile(const std::string& path, const std::string& content) override;
  std::string FromOlderCodePage(const std::string& bytes) override;
  bool WritePrivateProfileString(const std::string& section, const std::string& key, const std::string& value,
                                 const std::string& file) override;
  PathSyntax Syntax() const override { return {}; }
};

}  // namespace quorvale
