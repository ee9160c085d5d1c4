#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "system/file_system.h"

namespace quorvale {

// Linux' files. A leading dot is what hides a file, links are followed, and what is neither a plain file
// nor a directory is not found at all. The long form of a name is the name itself, and so is the short one.
class PosixFileSystem : public FileSystem {
 public:
  // INI files without a directory lie in `settings_directory`. `saver_file` is the path under which the
  // program is known as a screen saver: it counts as existing, whatever the case of its name. `chosen` is
  // called when that is written to be the system's saver.
  PosixFileSystem(std::string settings_directory, std::string saver_file, std::function<void()> chosen = nullptr);

  // Names compare as NTFS compares them, by their upper-case form, and those that differ in case alone by
  // their bytes.
  void EnumerateFiles(const std::string& directory, const std::vector<std::string>& patterns,
                      const std::function<void(const std::string& name)>& found) override;

  // Takes no wildcards. A path that ends in a separator names a directory, which is not hidden then.
  std::string FindFile(const std::string& path, int attributes) override;

  std::string GetShortPathName(const std::string& path, std::uint32_t size) override;
  std::string ReadFile(const std::string& path, std::size_t most) override;
  void WriteFile(const std::string& path, const std::string& content) override;
  // Windows' western one, from where such lists come.
  std::string FromOlderCodePage(const std::string& bytes) override;
  // Linux keeps no saver in the file that the line is written to, so whoever does is told of it.
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
