#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "system/path_syntax.h"

namespace quorvale {

// Attribute masks of a file search. A search finds plain files; a bit of the mask lets it find entries
// with that attribute as well.
inline constexpr int kAttributeNormal = 0;
inline constexpr int kAttributeHidden = 2;
inline constexpr int kAttributeSystem = 4;
inline constexpr int kAttributeDirectory = 16;
inline constexpr int kAttributeArchive = 32;

// What the program asks of files and directories. Paths go to the system as they are.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Gives `found` the name of each plain file of `directory` (which ends in a separator) that matches
  // one of `patterns` ("*.bmp"), without regard to case: all of the first pattern, then all of the
  // second and so on, each group in name order. Hidden files, system files and directories are left
  // out. Fails with kNotFound or kUnreadable; what was given before that stays given.
  virtual void EnumerateFiles(const std::string& directory, const std::vector<std::string>& patterns,
                              const std::function<void(const std::string& name)>& found) = 0;

  // The name, in its long form and without directory, of the file or directory that `path` names, if
  // `attributes` lets the search find it; empty when nothing matches. A path that ends in a separator names a
  // directory, the root too. Fails with kUnreadable where the
  // search itself can't be made.
  virtual std::string FindFile(const std::string& path, int attributes) = 0;

  // The short form of the path of an existing file, or empty when there is none. At most `size` - 1 bytes.
  virtual std::string GetShortPathName(const std::string& path, std::uint32_t size) = 0;

  // The first `most` bytes of a plain file. Fails with kNotFound or kUnreadable and the system's description.
  virtual std::string ReadFile(const std::string& path, std::size_t most) = 0;

  // Gives a file that content, and makes it where it is missing. Until the new content is whole the old
  // one stays. Fails with kUnwritable and the system's description.
  virtual void WriteFile(const std::string& path, const std::string& content) = 0;

  // Text that is in no encoding of ours, read in the machine's older code page, as UTF-8.
  virtual std::string FromOlderCodePage(const std::string& bytes) = 0;

  // Sets one line of an INI file. A file name without a directory leaves its place to the platform.
  // False when it could not be written.
  virtual bool WritePrivateProfileString(const std::string& section, const std::string& key, const std::string& value,
                                         const std::string& file) = 0;

  virtual PathSyntax Syntax() const = 0;
};

}  // namespace quorvale
