#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "base/code_page_1252.h"
#include "platform/headless/failure_script.h"
#include "system/file_system.h"

namespace quorvale {

enum class FileCall { kAny, kEnumerate, kFind, kShortName, kWriteIni, kReadFile, kWriteFile };

// A file tree in memory. With "\" as the separator paths are Windows': "/" divides as well and case does
// not count. With "/" they are Unix paths. Wildcards never look at case. A call that is told to fail
// fails with kUnreadable, `WritePrivateProfileString` gives false.
class MemoryFileSystem : public FileSystem {
 public:
  void EnumerateFiles(const std::string& directory, const std::vector<std::string>& patterns,
                      const std::function<void(const std::string& name)>& found) override;
  std::string FindFile(const std::string& path, int attributes) override;
  std::string GetShortPathName(const std::string& path, std::uint32_t size) override;
  bool WritePrivateProfileString(const std::string& section, const std::string& key, const std::string& value,
                                 const std::string& file) override;
  std::string ReadFile(const std::string& path, std::size_t most) override;
  void WriteFile(const std::string& path, const std::string& content) override;
  std::string FromOlderCodePage(const std::string& bytes) override { return FromCodePage1252(bytes); }
  PathSyntax Syntax() const override { return syntax_; }

  // What follows is for the test. The separator is to be set before anything is added.

  void SetSyntax(PathSyntax syntax) { syntax_ = syntax; }

  // Adds or replaces a file or directory, with the directories that lead to it.
  void AddFile(const std::string& path, const std::string& content = {}, int attributes = kAttributeArchive);
  void AddDirectory(const std::string& path, int attributes = kAttributeDirectory);
  // The last element's short form.
  void SetShortName(const std::string& path, const std::string& name);
  // Takes away a file, or a directory with all that is in it.
  void Remove(const std::string& path);

  FailureScript<FileCall> failures;
  // That directory gives so many names and then fails to be read, and a file fails to be opened.
  void MakeUnreadable(const std::string& path, int names_before = 0);

  // The directories enumerated so far.
  const std::vector<std::string>& Enumerated() const { return enumerated_; }
  // How many bytes the last `ReadFile` might give.
  std::size_t MostRead() const { return most_read_; }
  // A line of an INI file as it was last written.
  std::optional<std::string> IniLine(const std::string& section, const std::string& key, const std::string& file) const;

  enum class ReadResult { kRead, kNotFound, kUnreadable };
  ReadResult Read(const std::string& path, std::string& content) const;

 private:
  struct Entry {
    std::string name;
    std::string short_name;
    std::string content;
    int attributes = 0;
    int readable_names = -1;  // none is unreadable

    bool IsDirectory() const { return (attributes & kAttributeDirectory) != 0; }
  };
  // The entries of a directory by their normalised path, which makes a directory's entries neighbours.
  using Tree = std::map<std::string, Entry>;

  bool IsSeparator(char c) const { return c == syntax_.separator || (syntax_.separator == '\\' && c == '/'); }
  // With "/" between the elements, none at the end, and in upper case where case does not count.
  std::string Normalised(const std::string& path) const;
  std::string WithLongNames(const std::string& normalised) const;
  // The two parts of a path: what leads to its last element, and that element.
  std::string ParentOf(const std::string& path) const;
  std::string NameOf(const std::string& path) const;
  const Entry* Find(const std::string& path) const;
  Entry& Add(const std::string& path, int attributes);
  std::vector<const Entry*> EntriesOf(const std::string& directory) const;

  PathSyntax syntax_;
  Tree tree_;
  std::vector<std::string> enumerated_;
  std::size_t most_read_ = 0;
  std::map<std::tuple<std::string, std::string, std::string>, std::string> ini_;
};

}  // namespace quorvale
