#include "settings/reg_settings.h"

#include "support/headless_fixture.h"

namespace quorvale {
namespace {

constexpr char kKey[] = "Software\\Halvern Inc.\\Quorvale Customizable Screen Saver";

class RegSettingsTest : public HeadlessTest {
 protected:
  CRegSettings settings{desktop.registry};
};

TEST_F(RegSettingsTest, WhatIsSavedIsReadBack) {
  for (const std::string& text : {std::string("x"), std::string("  blanks at both ends "), std::string(512, ' '),
                                  std::string("\xFF\xC3 odd bytes"), std::string()}) {
    EXPECT_TRUE(settings.SaveSetting("Options", "Key", text));
    EXPECT_EQ(settings.GetSetting("Options", "KEY", "default"), text);
  }
  EXPECT_TRUE(desktop.registry.HasKey(kHkeyCurrentUser, std::string(kKey) + "\\Options"));
  EXPECT_EQ(desktop.registry.OpenKeys(), 0);
}

TEST_F(RegSettingsTest, WhatIsMissingReadsAsTheDefaultAndCreatesNothing) {
  EXPECT_EQ(settings.GetSetting("Options", "Key", "default"), "default");
  EXPECT_FALSE(desktop.registry.HasKey(kHkeyCurrentUser, kKey));
  settings.SaveSetting("Options", "Other", "x");
  EXPECT_EQ(settings.GetSetting("Options", "Key", "default"), "default");
}

TEST_F(RegSettingsTest, AStarIsTheDefaultValueAndOnlyAsTheWholeName) {
  settings.SaveSetting("S", "*", "default value");
  settings.SaveSetting("S", "a*", "other");
  EXPECT_EQ(desktop.registry.Text(kHkeyCurrentUser, std::string(kKey) + "\\S", ""), "default value");
  EXPECT_EQ(settings.GetSetting("S", "*"), "default value");
  EXPECT_EQ(settings.GetSetting("S", "a*"), "other");
  EXPECT_TRUE(settings.DeleteSetting("S", "*"));
  EXPECT_EQ(settings.GetSetting("S", "*", "gone"), "gone");
  EXPECT_EQ(settings.GetSetting("S", "a*"), "other");
}

TEST_F(RegSettingsTest, DeletingTakesAValueOrAWholeSection) {
  settings.SaveSetting("S", "a", "1");
  settings.SaveSetting("S", "b", "2");
  settings.SaveSetting("T", "a", "3");
  EXPECT_TRUE(settings.DeleteSetting("S", "a"));
  EXPECT_FALSE(settings.DeleteSetting("S", "a"));
  EXPECT_EQ(settings.GetSetting("S", "b"), "2");
  EXPECT_TRUE(settings.DeleteSetting("S"));
  EXPECT_FALSE(settings.DeleteSetting("S"));
  EXPECT_FALSE(settings.DeleteSetting("Never", "a"));
  EXPECT_EQ(settings.GetSetting("S", "b", "gone"), "gone");
  EXPECT_EQ(settings.GetSetting("T", "a"), "3");
}

TEST_F(RegSettingsTest, OtherTypesReadAsBytesWithoutTheLast) {
  settings.SaveSetting("S", "x", "");
  desktop.registry.SetValue(kHkeyCurrentUser, std::string(kKey) + "\\S", "n", kRegDword, std::string("\1\0\3\4", 4));
  EXPECT_EQ(settings.GetSetting("S", "n"), std::string("\1\0\3", 3));
  desktop.registry.SetValue(kHkeyCurrentUser, std::string(kKey) + "\\S", "n", kRegDword, "");
  EXPECT_EQ(settings.GetSetting("S", "n", "default"), "default") << "a value of no bytes is none";
}

TEST_F(RegSettingsTest, EveryFailingCallGivesTheDefaultOrFalse) {
  settings.SaveSetting("S", "a", "1");
  const auto read = [&] { return settings.GetSetting("S", "a", "default") != "default"; };
  const auto save = [&] { return settings.SaveSetting("S", "a", "2"); };
  const auto delete_value = [&] { return settings.DeleteSetting("S", "a"); };
  const auto delete_section = [&] { return settings.DeleteSetting("S"); };
  const std::tuple<RegistryCall, int, std::function<bool()>> cases[] = {{RegistryCall::kOpen, 1, read},
                                                                        {RegistryCall::kQuery, 1, read},
                                                                        {RegistryCall::kQuery, 2, read},
                                                                        {RegistryCall::kCreate, 1, save},
                                                                        {RegistryCall::kSet, 1, save},
                                                                        {RegistryCall::kOpen, 1, delete_value},
                                                                        {RegistryCall::kDeleteValue, 1, delete_value},
                                                                        {RegistryCall::kDeleteKey, 1, delete_section}};
  for (const auto& [call, count, run] : cases) {
    desktop.registry.failures.Forget();
    desktop.registry.failures.FailCall(call, count, kErrorAccessDenied);
    EXPECT_FALSE(run()) << static_cast<int>(call) << " " << count;
  }
  desktop.registry.failures.Forget();
  EXPECT_EQ(settings.GetSetting("S", "a"), "1");
  EXPECT_EQ(desktop.registry.OpenKeys(), 0);
}

TEST_F(RegSettingsTest, DistinguishesMissingFromUnreadable) {
  settings.SaveSetting("S", "a", "1");
  std::string value = "before";
  const auto read = [&](const char* key) { return settings.ReadSetting("S", key, value); };
  EXPECT_EQ(read("b"), SettingRead::kMissing);
  EXPECT_EQ(settings.ReadSetting("T", "a", value), SettingRead::kMissing);
  for (const auto& [call, count] :
       {std::pair{RegistryCall::kOpen, 1}, {RegistryCall::kQuery, 1}, {RegistryCall::kQuery, 2}}) {
    desktop.registry.failures.FailCall(call, count, kErrorReadFault);
    EXPECT_EQ(read("a"), SettingRead::kFailed);
  }
  EXPECT_EQ(value, "before");
  EXPECT_EQ(read("a"), SettingRead::kFound);
  EXPECT_EQ(value, "1");
}

TEST_F(RegSettingsTest, WritesTogetherAreAtomic) {
  settings.SaveSetting("S", "a", "old");
  const std::tuple<RegistryCall, int, bool> cases[] = {
      {RegistryCall::kBegin, 1, false},  {RegistryCall::kCreate, 2, false},   {RegistryCall::kSet, 1, false},
      {RegistryCall::kCommit, 1, false}, {RegistryCall::kDeleteKey, 1, true}, {RegistryCall::kSet, 3, true}};
  for (const auto& [call, count, kept] : cases) {
    desktop.registry.failures.Forget();
    desktop.registry.failures.FailCall(call, count, kErrorWriteFault);
    EXPECT_EQ(settings.SaveTogether([&] {
      settings.DeleteSetting("S");
      settings.SaveSetting("S", "a", "new");
      settings.SaveSetting("S", "b", "new");
    }),
              kept);
    EXPECT_EQ(settings.GetSetting("S", "a") + settings.GetSetting("S", "b"), kept ? "newnew" : "old");
  }
  EXPECT_EQ(desktop.registry.single_writes, 1);
}

TEST_F(RegSettingsTest, NamesMakeThePathAndEmptyOnesRestoreIt) {
  settings.SetCompany("  Us  ");
  settings.SetAppName("It");
  settings.SaveSetting("", "a", "1");
  EXPECT_EQ(desktop.registry.Text(kHkeyCurrentUser, "Software\\Us\\It", "a"), "1");
  settings.SetCompany("");
  settings.SetAppName("");
  EXPECT_EQ(settings.Company(), "Halvern Inc.");
  EXPECT_EQ(settings.AppName(), "Quorvale Customizable Screen Saver");
}

}  // namespace
}  // namespace quorvale
