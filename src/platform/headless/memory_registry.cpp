#include "platform/headless/memory_registry.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace quorvale {
namespace {

// Access bits of an open key.
constexpr std::uint32_t kQueryValue = 1;
constexpr std::uint32_t kSetValue = 2;

std::vector<std::string> Levels(const std::string& path) {
  const std::string text = UpperCase(path);
  std::vector<std::string> levels;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\\', start), text.size());
    if (end > start) levels.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return levels;
}

// The bytes that a query returns. A text ends in a NUL even if it was stored without one.
std::string QueriedBytes(std::uint32_t type, const std::string& bytes) {
  const bool needs_nul = type == kRegSz && (bytes.empty() || bytes.back() != '\0');
  return needs_nul ? bytes + '\0' : bytes;
}

}  // namespace

MemoryRegistry::MemoryRegistry() {
  for (const std::uint32_t hive : {kHkeyClassesRoot, kHkeyCurrentUser, kHkeyLocalMachine, kHkeyDynData}) {
    hives_[hive] = std::make_shared<Node>();
  }
}

std::int32_t MemoryRegistry::RegOpenKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                                          RegistryKey& key) {
  if (const auto result = Begin(RegistryCall::kOpen)) return *result;
  if (!hives_.contains(hive)) return kErrorInvalidHandle;
  auto node = Find(hive, path);
  if (!node) return kErrorFileNotFound;
  key = Open(std::move(node), access);
  return kErrorSuccess;
}

std::int32_t MemoryRegistry::RegCreateKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                                            RegistryKey& key) {
  if (const auto result = Begin(RegistryCall::kCreate)) return *result;
  if (!hives_.contains(hive)) return kErrorInvalidHandle;
  key = Open(Create(hive, path), access);
  return kErrorSuccess;
}

std::int32_t MemoryRegistry::RegQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type, char* data,
                                             std::uint32_t& size) {
  if (const auto result = Begin(RegistryCall::kQuery)) return *result;
  std::shared_ptr<Node> node;
  if (const auto result = Use(key, kQueryValue, node); result != kErrorSuccess) return result;
  const auto value = node->values.find(UpperCase(name));
  if (value == node->values.end()) return kErrorFileNotFound;
  const std::string bytes = QueriedBytes(value->second.type, value->second.bytes);
  const std::uint32_t room = size;
  type = value->second.type;
  size = static_cast<std::uint32_t>(bytes.size());
  if (data == nullptr) return kErrorSuccess;
  if (room < size) return kErrorMoreData;
  std::copy(bytes.begin(), bytes.end(), data);
  return kErrorSuccess;
}

std::int32_t MemoryRegistry::RegSetValueEx(RegistryKey key, const std::string& name, std::uint32_t type,
                                           const char* data, std::uint32_t size) {
  if (const auto result = Begin(RegistryCall::kSet)) return *result;
  std::shared_ptr<Node> node;
  if (const auto result = Use(key, kSetValue, node); result != kErrorSuccess) return result;
  CountWrite();
  node->values[UpperCase(name)] = {type, std::string(data, size)};
  return kErrorSuccess;
}

std::int32_t MemoryRegistry::RegDeleteValue(RegistryKey key, const std::string& name) {
  if (const auto result = Begin(RegistryCall::kDeleteValue)) return *result;
  std::shared_ptr<Node> node;
  if (const auto result = Use(key, kSetValue, node); result != kErrorSuccess) return result;
  if (node->values.erase(UpperCase(name)) == 0) return kErrorFileNotFound;
  CountWrite();
  return kErrorSuccess;
}

std::int32_t MemoryRegistry::RegDeleteKey(RegistryKey key, const std::string& name) {
  if (const auto result = Begin(RegistryCall::kDeleteKey)) return *result;
  std::shared_ptr<Node> parent;
  if (const auto result = Use(key, 0, parent); result != kErrorSuccess) return result;
  std::vector<std::string> levels = Levels(name);
  if (levels.empty()) return kErrorFileNotFound;
  const std::string last = std::move(levels.back());
  levels.pop_back();
  for (const std::string& level : levels) {
    const auto child = parent->children.find(level);
    if (child == parent->children.end()) return kErrorFileNotFound;
    parent = child->second;
  }
  const auto doomed = parent->children.find(last);
  if (doomed == parent->children.end()) return kErrorFileNotFound;
  if (!doomed->second->children.empty()) return kErrorAccessDenied;
  CountWrite();
  doomed->second->deleted = true;
  parent->children.erase(doomed);
  return kErrorSuccess;
}

std::int32_t MemoryRegistry::RegCloseKey(RegistryKey key) {
  const auto result = Begin(RegistryCall::kClose);
  const bool was_open = open_.erase(key) > 0;
  if (result) return *result;
  return was_open ? kErrorSuccess : kErrorInvalidHandle;
}

std::int32_t MemoryRegistry::BeginWrites() {
  if (const auto result = Begin(RegistryCall::kBegin)) return *result;
  if (before_writes_) return kErrorInvalidFunction;
  decltype(hives_) copy;
  for (const auto& [hive, root] : hives_) copy[hive] = Copy(*root);
  before_writes_ = std::move(copy);
  return kErrorSuccess;
}

std::int32_t MemoryRegistry::CommitWrites() {
  const auto result = Begin(RegistryCall::kCommit);
  if (!before_writes_) return kErrorInvalidFunction;
  if (result) hives_ = std::move(*before_writes_);
  before_writes_.reset();
  return result.value_or(kErrorSuccess);
}

void MemoryRegistry::CancelWrites() {
  Begin(RegistryCall::kCancel);
  if (before_writes_) hives_ = std::move(*before_writes_);
  before_writes_.reset();
}

bool MemoryRegistry::HasKey(std::uint32_t hive, const std::string& path) const { return Find(hive, path) != nullptr; }

std::optional<std::string> MemoryRegistry::Text(std::uint32_t hive, const std::string& path,
                                                const std::string& name) const {
  const auto node = Find(hive, path);
  if (!node) return std::nullopt;
  const auto value = node->values.find(UpperCase(name));
  if (value == node->values.end()) return std::nullopt;
  std::string text = QueriedBytes(kRegSz, value->second.bytes);
  text.pop_back();
  return text;
}

void MemoryRegistry::SetText(std::uint32_t hive, const std::string& path, const std::string& name,
                             const std::string& text) {
  SetValue(hive, path, name, kRegSz, text);
}

void MemoryRegistry::SetValue(std::uint32_t hive, const std::string& path, const std::string& name, std::uint32_t type,
                              const std::string& bytes) {
  Create(hive, path)->values[UpperCase(name)] = {type, bytes};
}

std::optional<int> MemoryRegistry::Begin(RegistryCall call) {
  calls.push_back(call);
  if (called) called(call);
  return failures.Next(call);
}

std::shared_ptr<MemoryRegistry::Node> MemoryRegistry::Copy(const Node& node) {
  auto copy = std::make_shared<Node>(node);
  for (auto& [name, child] : copy->children) child = Copy(*child);
  return copy;
}

std::shared_ptr<MemoryRegistry::Node> MemoryRegistry::Find(std::uint32_t hive, const std::string& path) const {
  const auto root = hives_.find(hive);
  if (root == hives_.end()) return nullptr;
  std::shared_ptr<Node> node = root->second;
  for (const std::string& level : Levels(path)) {
    const auto child = node->children.find(level);
    if (child == node->children.end()) return nullptr;
    node = child->second;
  }
  return node;
}

std::shared_ptr<MemoryRegistry::Node> MemoryRegistry::Create(std::uint32_t hive, const std::string& path) {
  std::shared_ptr<Node>* node = &hives_.at(hive);
  for (const std::string& level : Levels(path)) {
    node = &(*node)->children[level];
    if (!*node) *node = std::make_shared<Node>();
  }
  return *node;
}

RegistryKey MemoryRegistry::Open(std::shared_ptr<Node> node, std::uint32_t access) {
  open_[++last_key_] = {std::move(node), access};
  return last_key_;
}

std::int32_t MemoryRegistry::Use(RegistryKey key, std::uint32_t access, std::shared_ptr<Node>& node) const {
  const auto open = open_.find(key);
  if (open == open_.end()) return kErrorInvalidHandle;
  if (open->second.node->deleted) return kErrorKeyDeleted;
  if ((open->second.access & access) != access) return kErrorAccessDenied;
  node = open->second.node;
  return kErrorSuccess;
}

}  // namespace quorvale
