#include "platform/headless/memory_file_system.h"

#include <algorithm>

#include "base/failure.h"
#include "base/paths.h"
#include "base/text.h"

namespace quorvale {
namespace {

constexpr int kLookedAt = kAttributeHidden | kAttributeSystem | kAttributeDirectory;

// Whether a search with `mask` finds an entry with these attributes.
bool Finds(int mask, int attributes) { return (attributes & kLookedAt & ~mask) == 0; }

Failure Unreadable(const std::string& path) {
  return {FailureNumber::kUnreadable, "Can't be read: " + path, "MemoryFileSystem"};
}

std::string_view SeparatorsOf(const PathSyntax& syntax) { return syntax.separator == '\\' ? "\\/" : "/"; }

}  // namespace

void MemoryFileSystem::EnumerateFiles(const std::string& directory, const std::vector<std::string>& patterns,
                                      const std::function<void(const std::string& name)>& found) {
  enumerated_.push_back(directory);
  if (failures.Next(FileCall::kEnumerate)) throw Unreadable(directory);
  const Entry* const entry = Find(directory);
  if (entry == nullptr || !entry->IsDirectory()) {
    throw Failure(FailureNumber::kNotFound, "No such directory: " + directory, "MemoryFileSystem");
  }
  // Collect the names first, because `found` may change the tree.
  std::vector<std::string> names;
  const std::vector<const Entry*> entries = EntriesOf(directory);
  for (const std::string& pattern : patterns) {
    for (const Entry* const candidate : entries) {
      if (Finds(kAttributeNormal, candidate->attributes) && MatchesWildcard(candidate->name, pattern)) {
        names.push_back(candidate->name);
      }
    }
  }
  const bool fails = entry->readable_names >= 0;
  if (fails) names.resize(std::min(names.size(), static_cast<std::size_t>(entry->readable_names)));
  for (const std::string& name : names) found(name);
  if (fails) throw Unreadable(directory);
}

std::vector<std::string> MemoryFileSystem::EnumerateFolder(const std::string& directory,
                                                           const std::vector<std::string>& patterns,
                                                           const std::function<void(const std::string& name)>& found) {
  EnumerateFiles(directory, patterns, found);
  std::vector<std::string> folders;
  for (const Entry* const entry : EntriesOf(directory)) {
    if (entry->IsDirectory() && Finds(kAttributeDirectory | kAttributeSystem, entry->attributes)) {
      folders.push_back(entry->name);
    }
  }
  return folders;
}

DirectoryId MemoryFileSystem::IdOf(const std::string& directory) {
  const Entry* const entry = Find(directory);
  if (entry == nullptr || !entry->IsDirectory()) {
    throw Failure(FailureNumber::kNotFound, "No such directory: " + directory, "MemoryFileSystem");
  }
  return {.volume = 0, .number = entry->number};
}

std::vector<std::optional<std::int64_t>> MemoryFileSystem::DatesOf(const std::vector<std::string>& paths) {
  std::vector<std::optional<std::int64_t>> dates;
  for (const std::string& path : paths) {
    const Entry* const entry = Find(path);
    dates.push_back(entry != nullptr ? entry->modified_at : std::nullopt);
  }
  return dates;
}

std::string MemoryFileSystem::FindFile(const std::string& path, int attributes) {
  if (failures.Next(FileCall::kFind)) throw Unreadable(path);
  if (!path.empty() && IsSeparator(path.back())) {
    const Entry* const directory = Find(path);
    if (directory == nullptr || !directory->IsDirectory() || !Finds(attributes, directory->attributes)) return {};
    return directory->name.empty() ? path : directory->name;
  }
  const std::string pattern = NameOf(path);
  for (const Entry* const entry : EntriesOf(ParentOf(path))) {
    const bool named = MatchesWildcard(entry->name, pattern) ||
                       (!entry->short_name.empty() && EqualsIgnoringCase(entry->short_name, pattern));
    if (named && Finds(attributes, entry->attributes)) return entry->name;
  }
  return {};
}

std::string MemoryFileSystem::GetShortPathName(const std::string& path, std::uint32_t size) {
  if (failures.Next(FileCall::kShortName) || Find(path) == nullptr) return {};
  std::string result;
  std::string element;
  std::string so_far;
  for (std::size_t at = 0; at <= path.size(); ++at) {
    if (at < path.size() && !IsSeparator(path[at])) {
      element += path[at];
      continue;
    }
    so_far += element;
    const Entry* const entry = Find(so_far);
    result += entry != nullptr && !entry->short_name.empty() ? entry->short_name : element;
    element.clear();
    if (at < path.size()) {
      result += path[at];
      so_far += path[at];
    }
  }
  return result.substr(0, size > 0 ? size - 1 : 0);
}

std::string MemoryFileSystem::ReadFile(const std::string& path, std::size_t most) {
  most_read_ = most;
  std::string content;
  const ReadResult result = failures.Next(FileCall::kReadFile) ? ReadResult::kUnreadable : Read(path, content);
  if (result == ReadResult::kUnreadable) throw Unreadable(path);
  if (result == ReadResult::kNotFound)
    throw Failure(FailureNumber::kNotFound, "No such file: " + path, "MemoryFileSystem");
  return content.substr(0, most);
}

void MemoryFileSystem::WriteFile(const std::string& path, const std::string& content) {
  const Entry* const entry = Find(path);
  const bool is_directory = entry != nullptr && entry->IsDirectory();
  if (failures.Next(FileCall::kWriteFile) || is_directory || Find(ParentOf(path)) == nullptr) {
    throw Failure(FailureNumber::kUnwritable, "Can't be written: " + path, "MemoryFileSystem");
  }
  AddFile(path, content);
}

bool MemoryFileSystem::WritePrivateProfileString(const std::string& section, const std::string& key,
                                                 const std::string& value, const std::string& file) {
  if (failures.Next(FileCall::kWriteIni)) return false;
  ini_[{section, key, file}] = value;
  return true;
}

void MemoryFileSystem::AddFile(const std::string& path, const std::string& content, int attributes) {
  Add(path, attributes).content = content;
}

void MemoryFileSystem::AddDirectory(const std::string& path, int attributes) {
  Add(path, attributes | kAttributeDirectory);
}

void MemoryFileSystem::SetShortName(const std::string& path, const std::string& name) {
  tree_.at(Normalised(path)).short_name = name;
}

void MemoryFileSystem::SetDate(const std::string& path, std::int64_t modified_at) {
  tree_.at(Normalised(path)).modified_at = modified_at;
}

void MemoryFileSystem::MakeSame(const std::string& path, const std::string& other) {
  tree_.at(Normalised(path)).number = tree_.at(Normalised(other)).number;
}

void MemoryFileSystem::Remove(const std::string& path) {
  const std::string gone = Normalised(path);
  std::erase_if(tree_, [&gone](const auto& item) { return item.first == gone || item.first.starts_with(gone + "/"); });
}

void MemoryFileSystem::MakeUnreadable(const std::string& path, int names_before) {
  tree_.at(Normalised(path)).readable_names = names_before;
}

std::optional<std::string> MemoryFileSystem::IniLine(const std::string& section, const std::string& key,
                                                     const std::string& file) const {
  const auto line = ini_.find({section, key, file});
  if (line == ini_.end()) return std::nullopt;
  return line->second;
}

MemoryFileSystem::ReadResult MemoryFileSystem::Read(const std::string& path, std::string& content) const {
  const Entry* const entry = Find(path);
  if (entry == nullptr) return ReadResult::kNotFound;
  if (entry->IsDirectory() || entry->readable_names >= 0) return ReadResult::kUnreadable;
  content = entry->content;
  return ReadResult::kRead;
}

std::string MemoryFileSystem::Normalised(const std::string& path) const {
  std::string result;
  for (const char c : path) {
    if (!IsSeparator(c)) {
      result += c;
    } else if (!result.ends_with('/')) {
      result += '/';
    }
  }
  if (result.ends_with('/')) result.pop_back();
  return syntax_.separator == '\\' ? WithLongNames(UpperCase(result)) : result;
}

// Each element may be in its short form.
std::string MemoryFileSystem::WithLongNames(const std::string& normalised) const {
  std::string result;
  for (std::size_t first = 0; first <= normalised.size();) {
    const std::size_t end = std::min(normalised.find('/', first), normalised.size());
    std::string name = normalised.substr(first, end - first);
    for (const auto& [path, entry] : tree_) {
      const bool is_sibling = path == result + UpperCase(entry.name);
      if (is_sibling && EqualsIgnoringCase(entry.short_name, name)) name = UpperCase(entry.name);
    }
    result += name;
    if (end < normalised.size()) result += '/';
    first = end + 1;
  }
  return result;
}

std::string MemoryFileSystem::ParentOf(const std::string& path) const {
  return path.substr(0, NameStart(path, SeparatorsOf(syntax_)));
}

std::string MemoryFileSystem::NameOf(const std::string& path) const {
  return path.substr(NameStart(path, SeparatorsOf(syntax_)));
}

const MemoryFileSystem::Entry* MemoryFileSystem::Find(const std::string& path) const {
  const auto entry = tree_.find(Normalised(path));
  return entry == tree_.end() ? nullptr : &entry->second;
}

MemoryFileSystem::Entry& MemoryFileSystem::Add(const std::string& path, int attributes) {
  std::string trimmed = path;
  while (!trimmed.empty() && IsSeparator(trimmed.back())) trimmed.pop_back();
  const std::string parent = ParentOf(trimmed);
  if (!parent.empty() && Find(parent) == nullptr) AddDirectory(parent);
  Entry& entry = tree_[Normalised(trimmed)];
  entry = {.name = NameOf(trimmed), .short_name = {}, .content = {}, .attributes = attributes, .number = ++added_};
  return entry;
}

std::vector<const MemoryFileSystem::Entry*> MemoryFileSystem::EntriesOf(const std::string& directory) const {
  const std::string parent = Normalised(directory) + "/";
  std::vector<const Entry*> entries;
  for (auto item = tree_.lower_bound(parent); item != tree_.end() && item->first.starts_with(parent); ++item) {
    if (item->first.find('/', parent.size()) == std::string::npos) entries.push_back(&item->second);
  }
  std::sort(entries.begin(), entries.end(), [](const Entry* a, const Entry* b) {
    const std::string upper_a = UpperCase(a->name);
    const std::string upper_b = UpperCase(b->name);
    return upper_a != upper_b ? upper_a < upper_b : a->name < b->name;
  });
  return entries;
}

bool MatchesWildcard(std::string_view name, std::string_view pattern) {
  if (pattern.empty()) return name.empty();
  if (pattern.front() == '*') {
    return MatchesWildcard(name, pattern.substr(1)) || (!name.empty() && MatchesWildcard(name.substr(1), pattern));
  }
  if (name.empty()) return false;
  const bool same = pattern.front() == '?' || EqualsIgnoringCase(name.substr(0, 1), pattern.substr(0, 1));
  return same && MatchesWildcard(name.substr(1), pattern.substr(1));
}

}  // namespace quorvale
