#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "base/text.h"
#include "platform/headless/failure_script.h"
#include "system/file_system.h"

namespace quorvale {

enum class FileCall { kAny, kEnumerate, kFind, kShortName, kWriteIni, kReadFile, kWriteFile };

// A file tree in memory. With the separator "\" it has Windows paths: "/" is a separator too, and case is ignored. With
// "/" it has Unix paths. Wildcards always ignore case. Scripted failures are kUnreadable;
// `WritePrivateProfileString` returns false.
class MemoryFileSystem : public FileSystem {
 public:
  void EnumerateFiles(const std::string& directory, const std::vector<std::string>& patterns,
                      const std::function<void(const std::string& name)>& found) override;
  std::vector<std::string> EnumerateFolder(const std::string& directory, const std::vector<std::string>& patterns,
                                           const std::function<void(const std::string& name)>& found) override;
  DirectoryId IdOf(const std::string& directory) override;
  std::vector<std::optional<std::int64_t>> DatesOf(const std::vector<std::string>& paths) override;
  std::string FindFile(const std::string& path, int attributes) override;
  std::string GetShortPathName(const std::string& path, std::uint32_t size) override;
  bool WritePrivateProfileString(const std::string& section, const std::string& key, const std::string& value,
                                 const std::string& file) override;
  std::string ReadFile(const std::string& path, std::size_t most) override;
  void WriteFile(const std::string& path, const std::string& content) override;
  std::string FromOlderCodePage(const std::string& bytes) override { return FromCodePage1252(bytes); }
  PathSyntax Syntax() const override { return syntax_; }

  // For tests. Set the separator before adding anything.

  void SetSyntax(PathSyntax syntax) { syntax_ = syntax; }

  // Adds or replaces a file or directory. Missing parent directories are added too.
  void AddFile(const std::string& path, const std::string& content = {}, int attributes = kAttributeArchive);
  void AddDirectory(const std::string& path, int attributes = kAttributeDirectory);
  // Sets the short form of the path's last element.
  void SetShortName(const std::string& path, const std::string& name);
  // Files have no date until they get one.
  void SetDate(const std::string& path, std::int64_t modified_at);
  // Makes both paths name one directory, as links do. Their contents stay apart.
  void MakeSame(const std::string& path, const std::string& other);
  // Removes a file, or a directory with its contents.
  void Remove(const std::string& path);

  FailureScript<FileCall> failures;
  // Makes reading a file fail. Reading a directory fails after that many names.
  void MakeUnreadable(const std::string& path, int names_before = 0);

  // The directories enumerated so far.
  const std::vector<std::string>& Enumerated() const { return enumerated_; }
  // The size limit of the last `ReadFile`, in bytes.
  std::size_t MostRead() const { return most_read_; }
  // The value last written to an INI file.
  std::optional<std::string> IniLine(const std::string& section, const std::string& key, const std::string& file) const;

  enum class ReadResult { kRead, kNotFound, kUnreadable };
  ReadResult Read(const std::string& path, std::string& content) const;

 private:
  struct Entry {
    std::string name;
    std::string short_name;
    std::string content;
    int attributes = 0;
    std::uint64_t number = 0;
    std::optional<std::int64_t> modified_at = {};
    int readable_names = -1;  // -1: readable

    bool IsDirectory() const { return (attributes & kAttributeDirectory) != 0; }
  };
  // Entries by normalised path, so that the entries of a directory are neighbours.
  using Tree = std::map<std::string, Entry>;

  bool IsSeparator(char c) const { return c == syntax_.separator || (syntax_.separator == '\\' && c == '/'); }
  // With "/" between the elements, without one at the end, and in upper case if case is ignored.
  std::string Normalised(const std::string& path) const;
  std::string WithLongNames(const std::string& normalised) const;
  // The two parts of a path: everything before its last element, and that element.
  std::string ParentOf(const std::string& path) const;
  std::string NameOf(const std::string& path) const;
  const Entry* Find(const std::string& path) const;
  Entry& Add(const std::string& path, int attributes);
  std::vector<const Entry*> EntriesOf(const std::string& directory) const;

  PathSyntax syntax_;
  Tree tree_;
  std::uint64_t added_ = 0;
  std::vector<std::string> enumerated_;
  std::size_t most_read_ = 0;
  std::map<std::tuple<std::string, std::string, std::string>, std::string> ini_;
};

// Whether `name` matches `pattern`: "*" stands for any characters, "?" for one byte. ASCII case is ignored.
bool MatchesWildcard(std::string_view name, std::string_view pattern);

}  // namespace quorvale
