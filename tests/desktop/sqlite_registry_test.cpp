#include "platform/desktop/system/sqlite_registry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "desktop/temporary_directory.h"
#include "settings/reg_settings.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using testing::Field;

class SqliteRegistryTest : public testing::Test {
 protected:
  RegistryKey Create(const std::string& path) {
    RegistryKey key = 0;
    EXPECT_EQ(registry_.RegCreateKeyEx(kHkeyCurrentUser, path, kKeyAllAccess, key), kErrorSuccess);
    return key;
  }
  std::int32_t Open(const std::string& path) {
    RegistryKey key = 0;
    const std::int32_t result = registry_.RegOpenKeyEx(kHkeyCurrentUser, path, kKeyAllAccess, key);
    EXPECT_EQ(key != 0, result == kErrorSuccess);
    if (key != 0) registry_.RegCloseKey(key);
    return result;
  }
  std::int32_t Set(RegistryKey key, const std::string& name, const std::string& bytes, std::uint32_t type = kRegSz) {
    return registry_.RegSetValueEx(key, name, type, bytes.data(), static_cast<std::uint32_t>(bytes.size()));
  }
  std::int32_t Query(RegistryKey key, const std::string& name) {
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    return registry_.RegQueryValueEx(key, name, type, nullptr, size);
  }

  TemporaryDirectory directory_;
  SqliteRegistry registry_{directory_.Path("config")};
};

TEST_F(SqliteRegistryTest, ReadingCreatesNothing) {
  EXPECT_EQ(Open("Software"), kErrorFileNotFound);
  EXPECT_EQ(CRegSettings(registry_).GetSetting("Options", "Interval", "5"), "5");
  EXPECT_FALSE(CRegSettings(registry_).DeleteSetting("Options"));
  EXPECT_FALSE(std::filesystem::exists(directory_.Path("config")));
}

TEST_F(SqliteRegistryTest, KeysComeAndGoLevelByLevel) {
  const RegistryKey product = Create(R"(Software\Maker\Product)");
  const RegistryKey section = Create(R"(SOFTWARE\maker\\product\Options\)");
  EXPECT_EQ(Open(R"(software\MAKER)"), kErrorSuccess);
  EXPECT_EQ(Open(R"(Software\Mak)"), kErrorFileNotFound);

  EXPECT_EQ(Set(section, "Interval", "7"), kErrorSuccess);
  EXPECT_EQ(registry_.RegDeleteKey(product, "Missing"), kErrorFileNotFound);
  EXPECT_EQ(registry_.RegDeleteKey(product, ""), kErrorAccessDenied) << "it has a key below it";
  EXPECT_EQ(registry_.RegDeleteKey(product, "OPTIONS"), kErrorSuccess);
  EXPECT_EQ(Open(R"(Software\Maker\Product\Options)"), kErrorFileNotFound);

  // A key of the same name is another key, and has none of the old values.
  const RegistryKey again = Create(R"(Software\Maker\Product\Options)");
  EXPECT_EQ(Query(section, "Interval"), kErrorKeyDeleted);
  EXPECT_EQ(Set(section, "Interval", "8"), kErrorKeyDeleted);
  EXPECT_EQ(registry_.RegDeleteValue(section, "Interval"), kErrorKeyDeleted);
  EXPECT_EQ(Query(again, "Interval"), kErrorFileNotFound);

  EXPECT_EQ(registry_.RegCloseKey(again), kErrorSuccess);
  EXPECT_EQ(registry_.RegCloseKey(again), kErrorInvalidHandle);
  EXPECT_EQ(Set(again, "Interval", "8"), kErrorInvalidHandle);
  RegistryKey key = 0;
  EXPECT_EQ(registry_.RegOpenKeyEx(kHkeyDynData + 1, "Software", kKeyRead, key), kErrorInvalidHandle);
  EXPECT_EQ(registry_.RegOpenKeyEx(kHkeyLocalMachine, R"(Software\Maker)", kKeyRead, key), kErrorFileNotFound);
}

TEST_F(SqliteRegistryTest, ValuesReadAsWindowsGivesThem) {
  using namespace std::string_literals;
  const struct {
    std::uint32_t type;
    std::string stored;
    std::string read;
  } cases[] = {
      {kRegSz, "text", "text\0"s},
      {kRegSz, "text\0"s, "text\0"s},
      {kRegSz, "", "\0"s},
      {kRegSz, "  a\0b "s, "  a\0b \0"s},
      {kRegDword, "\1\0\0\0"s, "\1\0\0\0"s},
      {3, "", ""},
      {kRegSz, "\xff\xc3"s, "\xff\xc3\0"s},
      {kRegSz, std::string(100'000, 'x'), std::string(100'000, 'x') + '\0'},
  };
  const RegistryKey key = Create("Software");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.stored.substr(0, 20));
    ASSERT_EQ(Set(key, "Name", c.stored, c.type), kErrorSuccess);
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    EXPECT_EQ(registry_.RegQueryValueEx(key, "NAME", type, nullptr, size), kErrorSuccess);
    EXPECT_EQ(size, c.read.size());
    EXPECT_EQ(type, c.type);

    std::string buffer(c.read.size() + 1, '#');
    EXPECT_EQ(registry_.RegQueryValueEx(key, "name", type, buffer.data(), size), kErrorSuccess);
    EXPECT_EQ(buffer, c.read + '#');

    if (c.read.empty()) continue;
    --size;
    EXPECT_EQ(registry_.RegQueryValueEx(key, "name", type, buffer.data(), size), kErrorMoreData);
    EXPECT_EQ(size, c.read.size());
  }
}

TEST_F(SqliteRegistryTest, AKeyOutlivesItsLastValue) {
  const RegistryKey key = Create(R"(Software\Maker)");
  EXPECT_EQ(Set(key, "", "default"), kErrorSuccess);
  EXPECT_EQ(registry_.RegDeleteValue(key, "other"), kErrorFileNotFound);
  EXPECT_EQ(registry_.RegDeleteValue(key, ""), kErrorSuccess);
  EXPECT_EQ(registry_.RegDeleteValue(key, ""), kErrorFileNotFound);
  EXPECT_EQ(Open(R"(Software\Maker)"), kErrorSuccess);
}

TEST_F(SqliteRegistryTest, AKeyOpenedForReadingTakesNoValues) {
  Create("Software");
  RegistryKey key = 0;
  EXPECT_EQ(registry_.RegOpenKeyEx(kHkeyCurrentUser, "Software", kKeyRead, key), kErrorSuccess);
  EXPECT_EQ(Set(key, "Name", "text"), kErrorAccessDenied);
  EXPECT_EQ(registry_.RegDeleteValue(key, "Name"), kErrorAccessDenied);
  EXPECT_EQ(Query(key, "Name"), kErrorFileNotFound);
}

TEST_F(SqliteRegistryTest, EnumeratesInNameOrder) {
  const RegistryKey key = Create(R"(Software\Maker)");
  Create(R"(Software\Maker\sounds\deep)");
  Create(R"(Software\Maker\Pictures)");
  Set(key, "b", "2");
  Set(key, "A", "1");
  Set(key, "B", "3");
  std::vector<std::string> names;
  EXPECT_EQ(registry_.EnumerateKeys(key, names), kErrorSuccess);
  EXPECT_THAT(names, ElementsAre("Pictures", "sounds"));
  std::vector<RegistryValue> values;
  EXPECT_EQ(registry_.EnumerateValues(key, values), kErrorSuccess);
  EXPECT_THAT(values, ElementsAre(Field(&RegistryValue::data, "1"), Field(&RegistryValue::data, "3")));
  EXPECT_EQ(values[1].name, "b") << "a value keeps the name that it was first stored under";
}

TEST_F(SqliteRegistryTest, AnotherObjectSeesEachWriteAtOnce) {
  SqliteRegistry other(directory_.Path("config"));
  CRegSettings here(registry_);
  CRegSettings there(other);
  for (const char* value : {"1", "2"}) {
    EXPECT_TRUE(here.SaveSetting("Options", "LastPicture", value));
    EXPECT_EQ(there.GetSetting("OPTIONS", "lastpicture"), value);
  }
  EXPECT_TRUE(there.DeleteSetting("Options"));
  EXPECT_EQ(here.GetSetting("Options", "LastPicture", "0"), "0");
  registry_.Close();
  EXPECT_TRUE(here.SaveSetting("Options", "*", " blanks stay "));
  EXPECT_EQ(CRegSettings(registry_).GetSetting("Options", "*"), " blanks stay ");
}

TEST_F(SqliteRegistryTest, AnActIsSeenWholeOrNotAtAll) {
  SqliteRegistry other(directory_.Path("config"));
  CRegSettings here(registry_);
  CRegSettings there(other);
  here.SaveSetting("Options", "Interval", "5");
  EXPECT_EQ(registry_.CommitWrites(), kErrorInvalidFunction);
  for (const bool committed : {false, true}) {
    {
      RegistryWrites act(registry_);
      EXPECT_EQ(registry_.BeginWrites(), kErrorInvalidFunction) << "acts don't nest";
      EXPECT_TRUE(here.SaveSetting("New\\Section", "a", "1")) << "a key is made in it";
      EXPECT_FALSE(here.DeleteSetting("Missing")) << "which is no failure of the act";
      EXPECT_TRUE(here.DeleteSetting("Options"));
      EXPECT_EQ(there.GetSetting("Options", "Interval"), "5");
      if (committed) {
        EXPECT_EQ(act.Commit(), kErrorSuccess);
      }
    }
    EXPECT_EQ(there.GetSetting("Options", "Interval", "none"), committed ? "none" : "5");
    EXPECT_EQ(there.GetSetting("New\\Section", "a", "none"), committed ? "1" : "none");
  }
  EXPECT_TRUE(there.SaveSetting("Options", "Interval", "6")) << "nothing is held any more";
}

TEST_F(SqliteRegistryTest, AKeyDeletedInATransactionIsEmptyWhenItIsCreatedAgain) {
  const std::string path = R"(Software\Halvern Inc.\Quorvale Customizable Screen Saver\List)";
  CRegSettings settings(registry_);
  const auto stored = [&](CRegSettings& reader) {
    std::string all;
    for (const char* const key : {"a", "b", "c", "d"}) all += reader.GetSetting("List", key, "-");
    return all;
  };
  for (const bool committed : {false, true}) {
    for (const char* const key : {"a", "b", "c"}) settings.SaveSetting("List", key, "1");
    const RegistryKey before = Create(path);
    {
      RegistryWrites writes(registry_);
      for (const char* const value : {"2", "3"}) {
        EXPECT_TRUE(settings.DeleteSetting("list"));
        EXPECT_EQ(Open(path), kErrorFileNotFound);
        EXPECT_TRUE(settings.SaveSetting("LIST", "B", value));
        EXPECT_TRUE(settings.SaveSetting("List", "d", value));
        EXPECT_EQ(stored(settings), std::string("-") + value + "-" + value);
      }
      EXPECT_FALSE(settings.DeleteSetting("List", "a")) << "deleted with its key";
      EXPECT_TRUE(settings.DeleteSetting("List", "D"));
      std::vector<RegistryValue> values;
      EXPECT_EQ(registry_.EnumerateValues(Create(path), values), kErrorSuccess);
      EXPECT_THAT(values, ElementsAre(Field(&RegistryValue::data, "3")));
      EXPECT_EQ(Query(before, "b"), kErrorKeyDeleted);
      if (committed) {
        EXPECT_EQ(writes.Commit(), kErrorSuccess);
      }
    }
    SqliteRegistry other(directory_.Path("config"));
    CRegSettings there(other);
    EXPECT_EQ(stored(settings), committed ? "-3--" : "111-");
    EXPECT_EQ(stored(there), stored(settings));
  }
}

}  // namespace
}  // namespace quorvale
