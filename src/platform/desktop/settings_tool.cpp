// quorvale-settings: reads and changes the Linux program's registry from the command line.

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "base/application_info.h"
#include "platform/desktop/system/files.h"
#include "platform/desktop/system/sqlite_registry.h"
#include "system/registry.h"

namespace quorvale {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kUsageError = 2;

constexpr char kUsage[] = R"(Usage: quorvale-settings [--key KEY] COMMAND

Reads and changes the settings of the Quorvale screen saver.

  list [SECTION]            print all values, or those of a section, one a line:
                            SECTION, KEY and VALUE with tabs between them
  get SECTION KEY           print a value
  set SECTION KEY VALUE     store a value; creates what is missing
  delete SECTION [KEY]      delete a value, or a section with all its values
  reset                     delete all settings

The options of the show are in section Options, its lists in PictureFiles and
SoundFiles. The name * is a section's unnamed value. Sections and keys compare
without regard to case.

  --key KEY                 work on another key than the program's own, such as
                            "Control Panel\Desktop"; section "" is that key itself
  --help                    print this text

The exit status is 0 when it is done, 1 when there is no such setting or it can't
be read or written, and 2 when the command makes no sense.
)";

using Arguments = std::vector<std::string>;

void Print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

std::string_view WithoutNul(std::string_view text) {
  if (text.ends_with('\0')) text.remove_suffix(1);
  return text;
}

// List entries are padded with blanks, which are not printed.
std::string_view WithoutBlanksAtEnd(std::string_view text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

std::string Below(const std::string& path, const std::string& name) { return path + "\\" + name; }

std::string ValueName(const std::string& key) { return key == "*" ? std::string() : key; }

class SettingsTool {
 public:
  explicit SettingsTool(std::string key) : registry_(SettingsDirectory()), key_(std::move(key)) {}

  int List(const Arguments& arguments) {
    const std::string section = arguments.empty() ? "" : arguments[0];
    const std::int32_t result = ListKey(section, arguments.empty());
    // An empty store has an empty list.
    return arguments.empty() && result == kErrorFileNotFound ? kDone : Report(result);
  }

  int Get(const Arguments& arguments) {
    RegistryKey opened = 0;
    std::int32_t result = registry_.RegOpenKeyEx(kHkeyCurrentUser, PathOf(arguments[0]), kKeyRead, opened);
    if (result != kErrorSuccess) return Report(result);
    const OpenRegistryKey open_key(registry_, opened);
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    const std::string name = ValueName(arguments[1]);
    result = registry_.RegQueryValueEx(opened, name, type, nullptr, size);
    std::string value(size, '\0');
    if (result == kErrorSuccess) result = registry_.RegQueryValueEx(opened, name, type, value.data(), size);
    if (result != kErrorSuccess) return Report(result);
    Print(WithoutNul(value));
    Print("\n");
    return kDone;
  }

  int Set(const Arguments& arguments) {
    RegistryKey opened = 0;
    std::int32_t result = registry_.RegCreateKeyEx(kHkeyCurrentUser, PathOf(arguments[0]), kKeyAllAccess, opened);
    if (result != kErrorSuccess) return Report(result);
    const OpenRegistryKey open_key(registry_, opened);
    const std::string& value = arguments[2];
    return Report(registry_.RegSetValueEx(opened, ValueName(arguments[1]), kRegSz, value.data(),
                                          static_cast<std::uint32_t>(value.size())));
  }

  int Delete(const Arguments& arguments) {
    const bool is_section = arguments.size() == 1;
    RegistryKey opened = 0;
    const std::int32_t result =
        registry_.RegOpenKeyEx(kHkeyCurrentUser, PathOf(is_section ? "" : arguments[0]), kKeyAllAccess, opened);
    if (result != kErrorSuccess) return Report(result);
    const OpenRegistryKey open_key(registry_, opened);
    return Report(is_section ? registry_.RegDeleteKey(opened, arguments[0])
                             : registry_.RegDeleteValue(opened, ValueName(arguments[1])));
  }

  int Reset(const Arguments& /*arguments*/) {
    RegistryKey opened = 0;
    std::int32_t result = registry_.RegOpenKeyEx(kHkeyCurrentUser, key_, kKeyRead, opened);
    if (result == kErrorFileNotFound) return kDone;
    const OpenRegistryKey open_key(registry_, opened);
    RegistryWrites writes(registry_);
    if (result == kErrorSuccess) result = writes.Begun();
    if (result == kErrorSuccess) result = DeleteTree(key_);
    if (result == kErrorSuccess) result = writes.Commit();
    return result == kErrorFileNotFound ? kDone : Report(result);
  }

 private:
  std::string PathOf(const std::string& section) const { return section.empty() ? key_ : Below(key_, section); }

  std::int32_t ListKey(const std::string& section, bool with_subsections) {
    RegistryKey opened = 0;
    std::int32_t result = registry_.RegOpenKeyEx(kHkeyCurrentUser, PathOf(section), kKeyRead, opened);
    if (result != kErrorSuccess) return result;
    const OpenRegistryKey open_key(registry_, opened);
    std::vector<RegistryValue> values;
    result = registry_.EnumerateValues(opened, values);
    for (const RegistryValue& value : values) {
      Print(section + "\t" + (value.name.empty() ? "*" : value.name) + "\t");
      Print(WithoutBlanksAtEnd(WithoutNul(value.data)));
      Print("\n");
    }
    std::vector<std::string> names;
    if (result == kErrorSuccess && with_subsections) result = registry_.EnumerateKeys(opened, names);
    for (const std::string& name : names) {
      if (result == kErrorSuccess) result = ListKey(section.empty() ? name : Below(section, name), true);
    }
    return result;
  }

  std::int32_t DeleteTree(const std::string& path) {
    RegistryKey opened = 0;
    std::int32_t result = registry_.RegOpenKeyEx(kHkeyCurrentUser, path, kKeyAllAccess, opened);
    if (result != kErrorSuccess) return result;
    const OpenRegistryKey open_key(registry_, opened);
    std::vector<std::string> names;
    result = registry_.EnumerateKeys(opened, names);
    for (const std::string& name : names) {
      if (result == kErrorSuccess) result = DeleteTree(Below(path, name));
    }
    return result == kErrorSuccess ? registry_.RegDeleteKey(opened, "") : result;
  }

  static int Report(std::int32_t result) {
    if (result == kErrorSuccess) return kDone;
    std::string reason =
        "The settings in " + SettingsDirectory() + " can't be read or written (error " + std::to_string(result) + ").";
    if (result == kErrorFileNotFound) reason = "There is no such setting.";
    if (result == kErrorAccessDenied) reason = "There are sections below this one.";
    std::fprintf(stderr, "quorvale-settings: %s\n", reason.c_str());
    return kFailed;
  }

  SqliteRegistry registry_;
  std::string key_;
};

struct Command {
  std::string_view name;
  std::size_t fewest_arguments;
  std::size_t most_arguments;
  int (SettingsTool::*run)(const Arguments& arguments);
};

constexpr Command kCommands[] = {
    {"list", 0, 1, &SettingsTool::List},     {"get", 2, 2, &SettingsTool::Get},     {"set", 3, 3, &SettingsTool::Set},
    {"delete", 1, 2, &SettingsTool::Delete}, {"reset", 0, 0, &SettingsTool::Reset},
};

int RunTool(Arguments arguments) {
  std::string key = std::string("Software\\") + kCompanyName + "\\" + kProductName;
  if (arguments.size() >= 2 && arguments[0] == "--key" && !arguments[1].empty()) {
    key = arguments[1];
    arguments.erase(arguments.begin(), arguments.begin() + 2);
  }
  if (!arguments.empty() && arguments[0] == "--help") {
    Print(kUsage);
    return kDone;
  }
  const std::string name = arguments.empty() ? "" : arguments[0];
  if (!arguments.empty()) arguments.erase(arguments.begin());
  for (const Command& command : kCommands) {
    if (name != command.name) continue;
    if (arguments.size() < command.fewest_arguments || arguments.size() > command.most_arguments) break;
    return (SettingsTool(key).*command.run)(arguments);
  }
  const std::string reason = name.empty() ? "no command" : name + ": no such command, or not with these arguments";
  std::fprintf(stderr, "quorvale-settings: %s; quorvale-settings --help lists them\n", reason.c_str());
  return kUsageError;
}

}  // namespace
}  // namespace quorvale

int main(int argc, char** argv) { return quorvale::RunTool({argv + 1, argv + argc}); }
