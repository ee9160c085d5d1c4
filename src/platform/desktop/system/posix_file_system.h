#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "system/file_system.h"

namespace quorvale {

// The files of Linux. A file with a leading dot is hidden. Links are followed. Only regular files and directories are
// found. Long and short names are the same.
class PosixFileSystem : public FileSystem {
 public:
  // `settings_directory` holds INI files whose names have no directory. `saver_file` is the path under which the
  // program is known as a screen saver; it counts as existing, and the case of its file name is ignored. `chosen` is
  // called when that path is written as the system's saver.
  PosixFileSystem(std::string settings_directory, std::string saver_file, std::function<void()> chosen = nullptr);

  // The name order is that of NTFS; names that differ only in case are in the order of their bytes.
  void EnumerateFiles(const std::string& directory, const std::vector<std::string>& patterns,
                      const std::function<void(const std::string& name)>& found) override;

  // A folder with a leading dot is hidden.
  std::vector<std::string> EnumerateFolder(const std::string& directory, const std::vector<std::string>& patterns,
                                           const std::function<void(const std::string& name)>& found) override;
  DirectoryId IdOf(const std::string& directory) override;
  std::vector<std::optional<std::int64_t>> DatesOf(const std::vector<std::string>& paths) override;

  // No wildcards. A directory whose path ends in a separator is not hidden.
  std::string FindFile(const std::string& path, int attributes) override;

  std::string GetShortPathName(const std::string& path, std::uint32_t size) override;
  std::string ReadFile(const std::string& path, std::size_t most) override;
  void WriteFile(const std::string& path, const std::string& content) override;
  // Code page 1252: older lists come from Windows.
  std::string FromOlderCodePage(const std::string& bytes) override;
  // Linux does not take the saver from that file, so `chosen` is called too.
  bool WritePrivateProfileString(const std::string& section, const std::string& key, const std::string& value,
                                 const std::string& file) override;
  PathSyntax Syntax() const override { return {'/'}; }

 private:
  bool IsSaverFile(const std::string& path) const;

  std::string settings_directory_;
  std::string saver_file_;
  std::function<void()> chosen_;
};

}  // namespace quorvale
