#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "base/paths.h"

namespace quorvale {

// Attribute masks of a file search. A search always finds plain files; each bit adds entries with that attribute.
inline constexpr int kAttributeNormal = 0;
inline constexpr int kAttributeHidden = 2;
inline constexpr int kAttributeSystem = 4;
inline constexpr int kAttributeDirectory = 16;
inline constexpr int kAttributeArchive = 32;

// Distinguishes a directory from all others, whichever path leads to it. A `number` of 0 means that the file system has
// no such numbers.
struct DirectoryId {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;

  bool operator==(const DirectoryId&) const = default;
  bool operator<(const DirectoryId& other) const {
    return std::tie(volume, number) < std::tie(other.volume, other.number);
  }
};

// Access to files and directories. Paths are passed to the system unchanged.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Calls `found` with the name of each plain file in `directory` (which ends in a separator) that matches one of
  // `patterns` ("*.bmp", case ignored): pattern by pattern, each in name order. Skips hidden files, system files and
  // directories. Fails with kNotFound or kUnreadable, perhaps after some calls of `found`.
  virtual void EnumerateFiles(const std::string& directory, const std::vector<std::string>& patterns,
                              const std::function<void(const std::string& name)>& found) = 0;

  // The same, and returns the names of the directories in `directory` in name order, those of links to directories
  // among them. Skips hidden ones.
  virtual std::vector<std::string> EnumerateFolder(const std::string& directory,
                                                   const std::vector<std::string>& patterns,
                                                   const std::function<void(const std::string& name)>& found) = 0;

  // Links are followed. Fails with kNotFound or kUnreadable.
  virtual DirectoryId IdOf(const std::string& directory) = 0;

  // When the content of each of these files was last changed, in units of 100 nanoseconds. Only the order of the values
  // counts. No value if there is no such file, or its date can't be read. Fastest where the files of a directory stand
  // together.
  virtual std::vector<std::optional<std::int64_t>> DatesOf(const std::vector<std::string>& paths) = 0;

  // The long name, without directory, of the file or directory at `path`; empty if there is none or `attributes`
  // excludes it. A path that ends in a separator names a directory, perhaps the root. Fails with kUnreadable if the
  // search fails.
  virtual std::string FindFile(const std::string& path, int attributes) = 0;

  // The short form of the path of an existing file, or empty when there is none. At most `size` - 1 bytes.
  virtual std::string GetShortPathName(const std::string& path, std::uint32_t size) = 0;

  // The first `most` bytes of a plain file. Fails with kNotFound or kUnreadable and the system's description.
  virtual std::string ReadFile(const std::string& path, std::size_t most) = 0;

  // Creates or replaces a file. The old content stays until the new one is complete. Fails with kUnwritable and the
  // system's description.
  virtual void WriteFile(const std::string& path, const std::string& content) = 0;

  // Converts text in the machine's older (ANSI) code page to UTF-8.
  virtual std::string FromOlderCodePage(const std::string& bytes) = 0;

  // Sets one line of an INI file. For a file name without a directory the platform chooses the directory. False if the
  // write fails.
  virtual bool WritePrivateProfileString(const std::string& section, const std::string& key, const std::string& value,
                                         const std::string& file) = 0;

  virtual PathSyntax Syntax() const = 0;
};

}  // namespace quorvale
