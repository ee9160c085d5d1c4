#include "platform/desktop/system/sqlite_registry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "desktop/temporary_directory.h"
#include "settings/reg_settings.h"
#include "support/registry_rules.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using testing::Field;

struct SqliteRegistryOfItsOwn : private TemporaryDirectory, public SqliteRegistry {
  SqliteRegistryOfItsOwn() : SqliteRegistry(TemporaryDirectory::Path()) {}
};
INSTANTIATE_TEST_SUITE_P(Sqlite, RegistryRules,
                         testing::Values([] { return std::make_unique<SqliteRegistryOfItsOwn>(); }));

class SqliteRegistryTest : public testing::Test {
 protected:
  RegistryKey Create(const std::string& path) {
    RegistryKey key = 0;
    EXPECT_EQ(registry_.RegCreateKeyEx(kHkeyCurrentUser, path, kKeyAllAccess, key), kErrorSuccess);
    return key;
  }
  std::int32_t Open(const std::string& path, std::uint32_t hive = kHkeyCurrentUser) {
    RegistryKey key = 0;
    return registry_.RegOpenKeyEx(hive, path, kKeyAllAccess, key);
  }

  TemporaryDirectory directory_;
  SqliteRegistry registry_{directory_.Path("config")};
};

TEST_F(SqliteRegistryTest, ReadingCreatesNothing) {
  EXPECT_EQ(Open("Software"), kErrorFileNotFound);
  EXPECT_EQ(Open("Software", kHkeyDynData + 1), kErrorInvalidHandle);
  EXPECT_EQ(CRegSettings(registry_).GetSetting("Options", "Interval", "5"), "5");
  EXPECT_FALSE(CRegSettings(registry_).DeleteSetting("Options"));
  EXPECT_FALSE(std::filesystem::exists(directory_.Path("config")));
}

TEST_F(SqliteRegistryTest, EnumeratesInNameOrder) {
  const RegistryKey key = Create(R"(Software\Maker)");
  Create(R"(SOFTWARE\maker\\sounds\deep\)");
  Create(R"(Software\Maker\Pictures)");
  EXPECT_EQ(registry_.RegDeleteKey(key, ""), kErrorAccessDenied) << "it has keys below it";
  for (const auto& [name, text] : {std::pair{"b", "2"}, {"A", "1"}, {"B", "3"}}) {
    registry_.RegSetValueEx(key, name, kRegSz, text, 1);
  }
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
  for (const char* value : {"1", "2", "\xff\xc3"}) {
    EXPECT_TRUE(here.SaveSetting("Options", "LastPicture", value));
    EXPECT_EQ(there.GetSetting("OPTIONS", "lastpicture"), value);
  }
  EXPECT_TRUE(there.DeleteSetting("Options"));
  EXPECT_EQ(here.GetSetting("Options", "LastPicture", "0"), "0");
  registry_.Close();
  EXPECT_TRUE(here.SaveSetting("Options", "*", " blanks stay "));
  EXPECT_EQ(CRegSettings(registry_).GetSetting("Options", "*"), " blanks stay ");
}

TEST_F(SqliteRegistryTest, TransactionsAreAtomic) {
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
      EXPECT_EQ(here.GetSetting("Options", "Interval"), "5");
      EXPECT_EQ(here.GetSetting("Options", "Interval", "of the machine", kHkeyLocalMachine), "of the machine");
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
      EXPECT_EQ(registry_.RegDeleteValue(before, "b"), kErrorKeyDeleted);
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
