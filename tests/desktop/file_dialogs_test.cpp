#include "platform/desktop/widgets/file_dialogs.h"

#include <gmock/gmock.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QTimer>
#include <array>

#include "desktop/temporary_directory.h"

namespace quorvale {
namespace {

using namespace std::string_literals;

TEST(FileDialogFilters, MatchInEitherCase) {
  const QString kPictures = "Pictures (*.bmp;*.jpg)";
  const std::pair<std::string, QStringList> cases[] = {
      {"", {}},
      {"Pictures (*.bmp;*.jpg)|*.bmp;*.jpg|All Files(*.*)|*.*",
       {kPictures + " (*.bmp *.BMP *.jpg *.JPG)", "All Files(*.*) (*)"}},
      {"Broken|*.a|Tail", {"Broken (*.a *.A)"}},
  };
  for (const auto& [filter, expected] : cases) EXPECT_EQ(ToNameFilters(filter), expected) << filter;
}

TEST(FileDialogAnswers, ListSeveralFilesAfterTheirDirectory) {
  QStringList many;
  std::string long_answer = "/p";
  for (int i = 0; i < 2000; ++i) {
    many << "/p/a long name of a file " + QString::number(i);
    long_answer += "\0a long name of a file "s + std::to_string(i);
  }
  const std::pair<QStringList, std::string> cases[] = {
      {{}, ""},
      {{"/a/b.jpg"}, "/a/b.jpg"},
      {{"/a/b.jpg", "/a/c d.jpg"}, "/a\0b.jpg\0c d.jpg"s},
      {{"/b.jpg", "/c.jpg"}, "/\0b.jpg\0c.jpg"s},
      {{"/a/b.jpg", "/d/c.jpg"}, "/a\0b.jpg\0../d/c.jpg"s},
      {many, long_answer},
  };
  for (const auto& [paths, expected] : cases) EXPECT_EQ(ToAnswer(paths), expected);
}

// Runs `user` on the open dialog.
void Answer(const std::function<void(QFileDialog& dialog)>& user) {
  QTimer::singleShot(0, [user] { user(*qobject_cast<QFileDialog*>(QApplication::activeModalWidget())); });
}

void Accept(QFileDialog& dialog, const QString& typed) {
  dialog.findChild<QLineEdit*>("fileNameEdit")->setText(typed);
  static_cast<QDialog&>(dialog).accept();
}

TEST(FileDialogs, StartWhereTheLastFileWasChosen) {
  const TemporaryDirectory directory;
  directory.Write("a.qvl", "");
  directory.Write("b.qvl", "");
  FileDialogs dialogs;
  Answer([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Open it");
    Accept(dialog, QString::fromStdString(directory.Path("a.qvl")));
  });
  EXPECT_EQ(dialogs.Choose(nullptr, {.title = "Open it"}), directory.Path("a.qvl"));
  Answer([](QFileDialog& dialog) { Accept(dialog, R"("a.qvl" "b.qvl")"); });
  EXPECT_EQ(dialogs.Choose(nullptr, {.flags = kOfnAllowMultiSelect}), directory.Path() + "\0a.qvl\0b.qvl"s);
  Answer([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(dialogs.Choose(nullptr, {.save = true, .start_name = "new.qvl"}), "");
  Answer([](QFileDialog& dialog) { Accept(dialog, "new"); });
  EXPECT_EQ(dialogs.Choose(nullptr, {.save = true}), directory.Path("new")) << "nothing is added to a name";
}

// Qt by itself reads files to find their kind. A read from a device or a pipe may never return.
TEST(FileDialogs, ReadNoneOfTheListedFiles) {
  const TemporaryDirectory directory;
  directory.Write("unknown", "");
  const int watch = inotify_init1(IN_NONBLOCK);
  ASSERT_GE(inotify_add_watch(watch, directory.Path("unknown").c_str(), IN_OPEN), 0);
  FileDialogs dialogs;
  Answer([&](QFileDialog& dialog) {
    dialog.setDirectory(QString::fromStdString(directory.Path()));
    auto* const shown = dialog.findChild<QListView*>("listView");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown->model()->rowCount(shown->rootIndex()) == 1; }));
    QTest::qWait(100);
    dialog.reject();
  });
  EXPECT_EQ(dialogs.Choose(nullptr, {}), "");
  std::array<char, 1024> events{};
  EXPECT_LT(read(watch, events.data(), events.size()), 0);
  close(watch);
}

}  // namespace
}  // namespace quorvale
