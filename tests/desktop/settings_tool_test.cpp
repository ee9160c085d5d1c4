// The built tools, run as a user runs them.

#include <gtest/gtest.h>

#include <QProcess>

#include "desktop/temporary_directory.h"
#include "platform/desktop/system/sqlite_registry.h"
#include "settings/reg_settings.h"

namespace quorvale {
namespace {

struct Outcome {
  int status = -1;
  std::string output;

  bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* stream) { *stream << outcome.status << " " << outcome.output; }

class SettingsToolTest : public testing::Test {
 protected:
  Outcome Run(const QStringList& arguments) {
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", QString::fromStdString(directory_.Path()));
    tool.setProcessEnvironment(environment);
    tool.start(QUORVALE_SETTINGS_TOOL, arguments);
    tool.waitForFinished();
    const bool is_done = tool.exitStatus() == QProcess::NormalExit;
    complaint_ = tool.readAllStandardError();
    return {is_done ? tool.exitCode() : -1, tool.readAllStandardOutput().toStdString()};
  }

  TemporaryDirectory directory_;
  QByteArray complaint_;
};

TEST_F(SettingsToolTest, SetsAndGetsWhatTheProgramReads) {
  const Outcome quiet{0, ""};
  EXPECT_EQ(Run({"list"}), quiet);
  EXPECT_EQ(Run({"get", "Options", "Interval"}), (Outcome{1, ""}));
  EXPECT_EQ(Run({"set", "Options", "Interval", "7"}), quiet);
  EXPECT_EQ(Run({"set", "Options", "Color", "-1"}), quiet);
  EXPECT_EQ(Run({"set", "Options", "*", ""}), quiet);
  EXPECT_EQ(Run({"set", "PictureFiles", "File0", " Sea.jpg   "}), quiet);
  EXPECT_EQ(Run({"get", "options", "INTERVAL"}), (Outcome{0, "7\n"}));
  EXPECT_EQ(Run({"get", "Options", "*"}), (Outcome{0, "\n"}));
  EXPECT_EQ(Run({"get", "PictureFiles", "File0"}), (Outcome{0, " Sea.jpg   \n"}));
  EXPECT_EQ(Run({"list"}), (Outcome{0,
                                    "Options\t*\t\nOptions\tColor\t-1\nOptions\tInterval\t7\n"
                                    "PictureFiles\tFile0\t Sea.jpg\n"}));
  EXPECT_EQ(Run({"list", "PictureFiles"}), (Outcome{0, "PictureFiles\tFile0\t Sea.jpg\n"}));

  SqliteRegistry registry(directory_.Path("quorvale"));
  CRegSettings settings(registry);
  EXPECT_EQ(settings.GetSetting("PictureFiles", "File0"), " Sea.jpg   ");
  EXPECT_EQ(settings.GetSetting("Options", "*", "default"), "");

  EXPECT_EQ(Run({"delete", "Options", "Interval"}), quiet);
  EXPECT_EQ(Run({"delete", "Options", "Interval"}), (Outcome{1, ""}));
  EXPECT_EQ(settings.GetSetting("Options", "Interval", "5"), "5");
  EXPECT_EQ(Run({"delete", "PictureFiles"}), quiet);
  EXPECT_EQ(Run({"list", "PictureFiles"}), (Outcome{1, ""}));
  EXPECT_EQ(Run({"reset"}), quiet);
  EXPECT_EQ(Run({"reset"}), quiet);
  EXPECT_EQ(Run({"list"}), quiet);
}

// Its sections go in name order, and the last one can't go.
TEST_F(SettingsToolTest, AResetThatFailsDeletesNothing) {
  EXPECT_EQ(Run({"reset"}).status, 0);
  EXPECT_TRUE(directory_.Read("quorvale/settings.db").empty()) << "there is nothing to make a file for";
  EXPECT_EQ(Run({"set", "Options", "Interval", "7"}).status, 0);
  EXPECT_EQ(Run({"set", "PictureFiles", "File0", "Sea.jpg"}).status, 0);
  SqliteDatabase(directory_.Path("quorvale/settings.db"), SQLITE_OPEN_READWRITE)
      .Execute(
          "CREATE TRIGGER t BEFORE DELETE ON keys WHEN old.path LIKE '%PictureFiles' "
          "BEGIN SELECT RAISE(FAIL, ''); END");
  EXPECT_EQ(Run({"reset"}).status, 1);
  EXPECT_EQ(Run({"get", "Options", "Interval"}), (Outcome{0, "7\n"}));
}

TEST_F(SettingsToolTest, ReachesOtherKeys) {
  const QString key = R"(Control Panel\Desktop)";
  EXPECT_EQ(Run({"--key", key, "set", "", "ScreenSaveUsePassword", "1"}).status, 0);
  EXPECT_EQ(Run({"--key", "Control Panel", "get", "Desktop", "ScreenSaveUsePassword"}), (Outcome{0, "1\n"}));
  EXPECT_EQ(Run({"set", "Options", "Interval", "7"}).status, 0);
  EXPECT_EQ(Run({"--key", "Control Panel", "reset"}).status, 0);
  EXPECT_EQ(Run({"--key", key, "get", "", "ScreenSaveUsePassword"}).status, 1);
  EXPECT_EQ(Run({"get", "Options", "Interval"}), (Outcome{0, "7\n"}));
}

TEST_F(SettingsToolTest, RejectsInvalidArguments) {
  const QStringList cases[] = {
      {},        {"show"},       {"get", "Options"},    {"set", "Options", "Interval"}, {"reset", "Options"},
      {"--key"}, {"--key", "x"}, {"--key", "", "reset"}};
  for (const auto& arguments : cases) EXPECT_EQ(Run(arguments), (Outcome{2, ""})) << arguments.join(' ').toStdString();
  EXPECT_EQ(complaint_.count('\n'), 1) << complaint_.toStdString();
  EXPECT_EQ(Run({"--help"}).status, 0);
  directory_.Write("quorvale", "a file where the directory should be");
  EXPECT_EQ(Run({"set", "Options", "Interval", "7"}).status, 1);
  EXPECT_TRUE(complaint_.contains(directory_.Path("quorvale").c_str())) << complaint_.toStdString();
}

TEST(HelpViewer, NeedsAPageAndADisplay) {
  for (const auto& [argument, status] : {std::pair("--help", 2), std::pair("index.html", 1)}) {
    QProcess viewer;
    viewer.setProcessEnvironment(QProcessEnvironment());
    viewer.start(QUORVALE_HELP_VIEWER, {argument});
    viewer.waitForFinished(5'000);
    EXPECT_EQ(viewer.exitCode(), status) << argument;
  }
}

}  // namespace
}  // namespace quorvale
