#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/headless/failure_script.h"
#include "system/registry.h"

namespace quorvale {

enum class RegistryCall {
  kAny,
  kOpen,
  kCreate,
  kQuery,
  kSet,
  kDeleteValue,
  kDeleteKey,
  kClose,
  kBegin,
  kCommit,
  kCancel
};

// A registry in memory. It starts with empty hives. Calls can be made to fail.
class MemoryRegistry : public Registry {
 public:
  MemoryRegistry();

  std::int32_t RegOpenKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                            RegistryKey& key) override;
  std::int32_t RegCreateKeyEx(std::uint32_t hive, const std::string& path, std::uint32_t access,
                              RegistryKey& key) override;
  std::int32_t RegQueryValueEx(RegistryKey key, const std::string& name, std::uint32_t& type, char* data,
                               std::uint32_t& size) override;
  std::int32_t RegSetValueEx(RegistryKey key, const std::string& name, std::uint32_t type, const char* data,
                             std::uint32_t size) override;
  std::int32_t RegDeleteValue(RegistryKey key, const std::string& name) override;
  std::int32_t RegDeleteKey(RegistryKey key, const std::string& name) override;
  std::int32_t RegCloseKey(RegistryKey key) override;
  std::int32_t BeginWrites() override;
  std::int32_t CommitWrites() override;
  void CancelWrites() override;

  // For tests: none of these counts as a call or fails.

  FailureScript<RegistryCall> failures;
  // The calls made so far, in order.
  std::vector<RegistryCall> calls;
  // The number of writes and deletions outside transactions.
  int single_writes = 0;
  // Called at the start of each call.
  std::function<void(RegistryCall)> called;

  bool HasKey(std::uint32_t hive, const std::string& path) const;
  // The text of a value, without its NUL.
  std::optional<std::string> Text(std::uint32_t hive, const std::string& path, const std::string& name) const;
  void SetText(std::uint32_t hive, const std::string& path, const std::string& name, const std::string& text);
  void SetValue(std::uint32_t hive, const std::string& path, const std::string& name, std::uint32_t type,
                const std::string& bytes);
  int OpenKeys() const { return static_cast<int>(open_.size()); }

 private:
  struct Value {
    std::uint32_t type = 0;
    std::string bytes;
  };
  // Children and values are stored by their names in upper case.
  struct Node {
    std::map<std::string, std::shared_ptr<Node>> children;
    std::map<std::string, Value> values;
    bool deleted = false;
  };
  struct OpenKey {
    std::shared_ptr<Node> node;
    std::uint32_t access = 0;
  };

  // Records the call. Returns its result if it must fail.
  std::optional<int> Begin(RegistryCall call);
  std::shared_ptr<Node> Find(std::uint32_t hive, const std::string& path) const;
  std::shared_ptr<Node> Create(std::uint32_t hive, const std::string& path);
  RegistryKey Open(std::shared_ptr<Node> node, std::uint32_t access);
  // Sets `node` to the node of the open key. Fails if the key was not opened with these access bits.
  std::int32_t Use(RegistryKey key, std::uint32_t access, std::shared_ptr<Node>& node) const;

  using Hives = std::map<std::uint32_t, std::shared_ptr<Node>>;

  static std::shared_ptr<Node> Copy(const Node& node);
  // Counts a successful write outside a transaction.
  void CountWrite() { single_writes += before_writes_ ? 0 : 1; }

  Hives hives_;
  // The state before the current transaction; none outside of one.
  std::optional<Hives> before_writes_;
  std::map<RegistryKey, OpenKey> open_;
  RegistryKey last_key_ = 0;
};

}  // namespace quorvale
