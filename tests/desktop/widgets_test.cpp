#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "common/logged_events.h"
#include "desktop/widget_form.h"
#include "platform/desktop/desktop_platform.h"
#include "platform/desktop/toolkit/window_system.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Strings = std::vector<std::string>;

class WidgetsTest : public testing::Test {
 protected:
  WidgetsTest() : platform_({.application_title = "Test", .pixels = PixelKind::kLogical, .pass_lengths = {}}) {
    Open();
  }

  void Open() {
    form_ = std::make_shared<WidgetForm>(app_);
    form_->Show();
    window_ = QWidget::find(static_cast<WId>(form_->Hwnd()));
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
    platform_.PumpEvents();
  }

  // A new form.
  void Reopen() {
    form_->Unload();
    Open();
  }

  template <typename Kind = QWidget>
  Kind& Find(const char* name) {
    return *window_->findChild<Kind*>(name);
  }

  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* target = QApplication::activePopupWidget();
    if (target == nullptr) target = QApplication::focusWidget();
    QTest::keyClick(target != nullptr ? target : window_, static_cast<Qt::Key>(key), modifiers);
    platform_.PumpEvents();
  }
  void Click(const char* name) { QTest::mouseClick(&Find(name), Qt::LeftButton, Qt::NoModifier, QPoint(5, 8)); }
  static std::string Focused() {
    const QWidget* widget = QApplication::focusWidget();
    while (widget != nullptr && widget->objectName().isEmpty()) widget = widget->parentWidget();
    return widget != nullptr ? widget->objectName().toStdString() : "";
  }

  DesktopPlatform platform_;
  Application app_{platform_};
  std::shared_ptr<WidgetForm> form_;
  QWidget* window_ = nullptr;
};

// The toolkit keeps peers while an event is delivered, in which their window may be destroyed.
TEST_F(WidgetsTest, IgnoreTheFocusWithoutAWindow) {
  LoggedEvents events;
  auto window = platform_.CreateWindowPeer(WindowKind::kDialog, events);
  const auto button = platform_.Widgets().Make(*window, form_->ok);
  Surface surface;
  const auto box = platform_.CreateSurfacePeer(*window, surface, events);
  window.reset();
  button->TakeFocus();
  box->TakeFocus();
}

TEST_F(WidgetsTest, ReportWhatTheUserDoes) {
  const std::tuple<const char*, std::function<void()>, Strings> cases[] = {
      {"a click", [&] { Click("cmdAdd"); }, {"cmdAdd"}},
      {"Enter is the default button", [&] { Press(Qt::Key_Return); }, {"OK"}},
      {"Enter on a button is that button", [&] { form_->add.SetFocus(), Press(Qt::Key_Return); }, {"cmdAdd"}},
      {"Escape is the cancel button", [&] { Press(Qt::Key_Escape); }, {"Cancel"}},
      {"the close box", [&] { window_->close(); }, {"unload"}},
      {"F1", [&] { Press(Qt::Key_F1); }, {"help"}},
      {"F1 from the program", [&] { QtPrograms().SendKeys("{F1}"), platform_.PumpEvents(); }, {"help"}},
      {"a disabled button", [&] { form_->add.SetEnabled(false), Click("cmdAdd"); }, {}},
      {"an access key", [&] { Press(Qt::Key_A, Qt::AltModifier); }, {"cmdAdd"}},
      {"a check box", [&] { Click("chk"), Click("chk"); }, {"chk", "chk"}},
      {"the option that is on", [&] { Click("opt1"); }, {}},
      {"the other option", [&] { Click("opt2"); }, {"opt2"}},
      {"an option by arrow", [&] { form_->opt1.SetFocus(), Press(Qt::Key_Down); }, {"opt2"}},
      {"a tab by access key", [&] { Press(Qt::Key_W, Qt::AltModifier); }, {"tab"}},
      {"a picture", [&] { Click("picture"); }, {"picture"}},
      {"a picture twice",
       [&] {
         Click("picture");
         QTest::mouseDClick(&Find("picture"), Qt::LeftButton, Qt::NoModifier, QPoint(5, 8));
         QTest::mouseRelease(&Find("picture"), Qt::LeftButton, Qt::NoModifier, QPoint(5, 8));
       },
       {"picture"}},
      {"Delete in the list", [&] { form_->lst.SetFocus(), Press(Qt::Key_Delete); }, {"Delete"}},
      {"a shortcut", [&] { Press(Qt::Key_N, Qt::ControlModifier); }, {"New"}},
      {"a menu and out", [&] { Press(Qt::Key_E, Qt::AltModifier), Press(Qt::Key_Escape); }, {"Edit opens", "530"}},
      {"a menu before a button of that key",
       [&] { Press(Qt::Key_F, Qt::AltModifier), Press(Qt::Key_Escape); },
       {"File opens", "530"}},
      {"a command, after its menu has closed",
       [&] { Press(Qt::Key_F, Qt::AltModifier), Press(Qt::Key_N), platform_.PumpEvents(); },
       {"File opens", "530", "New"}},
      {"from menu to menu",
       [&] { Press(Qt::Key_F, Qt::AltModifier), Press(Qt::Key_Right), Press(Qt::Key_Escape); },
       {"File opens", "Edit opens", "530"}},
      {"a command of a submenu",
       [&] { Press(Qt::Key_F, Qt::AltModifier), Press(Qt::Key_M), Press(Qt::Key_D); },
       {"File opens", "530", "Deep"}},
  };
  for (const auto& [what, act, log] : cases) {
    SCOPED_TRACE(what);
    act();
    platform_.PumpEvents();
    EXPECT_THAT(form_->log, ElementsAreArray(log));
    Reopen();
  }
}

TEST_F(WidgetsTest, PassOnWhatIsEntered) {
  form_->txt.SetFocus();
  for (const char key : {'4', 'x', '2', '7'}) QTest::keyClick(QApplication::focusWidget(), key);
  EXPECT_EQ(form_->txt.Text(), "42");
  Press(Qt::Key_Backspace);
  EXPECT_EQ(form_->txt.Text(), "4");
  QApplication::clipboard()->setText("a1b2");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(form_->txt.Text(), "41");
  form_->sld.SetFocus();
  Press(Qt::Key_PageUp);
  EXPECT_EQ(form_->sld.Value(), 5);
  Press(Qt::Key_End);
  EXPECT_EQ(form_->sld.Value(), 20);
  form_->cbo.SetFocus();
  Press(Qt::Key_Down);
  EXPECT_EQ(form_->cbo.Text(), "Some");
  Click("opt2");
  EXPECT_FALSE(form_->opt1.Value());
  EXPECT_TRUE(form_->opt2.Value());
}

TEST_F(WidgetsTest, ShowWhatTheProgramSetsWithoutReportingIt) {
  form_->add.SetCaption("Re&move");
  form_->add.SetEnabled(false);
  form_->lst.SetVisible(false);
  form_->txt.SetText("123");
  form_->sld.SetValue(7);
  form_->text_label.Move({0, 0, 600, 300});
  platform_.PumpEvents();
  EXPECT_EQ(Find<QPushButton>("cmdAdd").text(), "Re&move");
  EXPECT_EQ(Find("cmdAdd").accessibleName(), "Remove");
  EXPECT_FALSE(Find("cmdAdd").isEnabled());
  EXPECT_FALSE(Find("lst").isVisible());
  EXPECT_EQ(Find<QLineEdit>("txt").text(), "12");
  EXPECT_EQ(Find("lblText").geometry(), QRect(0, 0, 40, 20));
  EXPECT_EQ(Find("txt").accessibleName(), "Text:");
  EXPECT_EQ(Find("cbo").accessibleName(), "Frame");
  EXPECT_THAT(form_->log, IsEmpty());
}

TEST_F(WidgetsTest, AreVisitedInTabOrder) {
  EXPECT_EQ(Focused(), "tabs");
  form_->add.SetEnabled(false);
  Strings visited;
  for (int i = 0; i < 10; ++i) {
    Press(Qt::Key_Tab);
    visited.push_back(Focused());
  }
  EXPECT_THAT(visited,
              ElementsAre("opt1", "txt", "chk", "lst", "cbo", "sld", "cmdFile", "cmdOK", "cmdCancel", "picture"));
  Press(Qt::Key_T, Qt::AltModifier);
  EXPECT_EQ(Focused(), "txt") << "a label's access key leads to the control behind it";
  for (const int tab : {2, 1}) {
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(form_->tabs.SelectedItem(), tab);
    EXPECT_EQ(Focused(), "tabs");
  }
}

TEST_F(WidgetsTest, HaveTheFocusBackWhenOneEventDisablesAndEnablesThem) {
  form_->file.Click = [this] {
    for (const bool enabled : {false, true}) form_->file.SetEnabled(enabled);
  };
  form_->file.SetFocus();
  Press(Qt::Key_Space);
  EXPECT_EQ(Focused(), "cmdFile");
  form_->file.Click = [this] { form_->file.SetEnabled(false); };
  Press(Qt::Key_Space);
  EXPECT_EQ(Focused(), "cmdAdd");
}

TEST_F(WidgetsTest, LieBelowTheMenuInAnAreaOfFixedSize) {
  const int menu = window_->findChild<QMenuBar*>()->height();
  EXPECT_EQ(window_->size(), QSize(440, 380 + menu));
  EXPECT_EQ(window_->minimumSize(), window_->maximumSize());
  form_->pane.SetBackColor(0x0000FF);
  platform_.PumpEvents();
  const QImage shot = window_->grab().toImage();
  const QPoint corner(387, menu);
  EXPECT_EQ(shot.pixelColor(corner), QColor(Qt::red));
  EXPECT_EQ(shot.pixelColor(corner + QPoint(39, 29)), QColor(Qt::red));
  EXPECT_NE(shot.pixelColor(corner + QPoint(40, 29)), QColor(Qt::red));
}

TEST_F(WidgetsTest, RunModallyUntilTheFormGoes) {
  const auto second = std::make_shared<WidgetForm>(app_);
  QTimer::singleShot(0, [&] {
    QWidget* const above = QWidget::find(static_cast<WId>(second->Hwnd()));
    EXPECT_EQ(QApplication::activeModalWidget(), above);
    Click("cmdAdd");
    QTest::keyClick(above, Qt::Key_Escape);
    second->Unload();
  });
  second->ShowModal();
  EXPECT_FALSE(second->IsLoaded());
  EXPECT_THAT(second->log, ElementsAre("Cancel", "unload"));
}

TEST_F(WidgetsTest, MixedColoursAreKeptAfterCancel) {
  QTimer::singleShot(200, [] {
    QWidget* const dialog = QApplication::activeModalWidget();
    for (QPushButton* const button : dialog->findChildren<QPushButton*>()) {
      if (button->text().contains("Custom")) button->click();
    }
    dialog->close();
  });
  EXPECT_EQ(platform_.ShowColourDialog(form_->Window(), 0x0080FF), 0x0080FFU);
  EXPECT_EQ(QColorDialog::customColor(0), QColor(0xFF, 0x80, 0));
}

class ListWidgetTest : public WidgetsTest {
 protected:
  ListWidgetTest() { form_->lst.SetFocus(); }

  QListView& View() { return Find<QListView>("lst"); }
  void ClickItem(int item, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QPoint at = View().visualRect(View().model()->index(item, 0)).center();
    QTest::mouseClick(View().viewport(), Qt::LeftButton, modifiers, at);
  }
  std::vector<int> Selected() {
    std::vector<int> selected;
    for (int i = 0; i < form_->lst.ListCount(); ++i) {
      EXPECT_EQ(form_->lst.Selected(i), View().selectionModel()->isRowSelected(i, {})) << i;
      if (form_->lst.Selected(i)) selected.push_back(i);
    }
    return selected;
  }
};

TEST_F(ListWidgetTest, SelectsAsWindowsDoes) {
  constexpr auto kShift = Qt::ShiftModifier;
  constexpr auto kCtrl = Qt::ControlModifier;
  const std::tuple<const char*, std::function<void()>, std::vector<int>> cases[] = {
      {"a click", [&] { ClickItem(1), ClickItem(3); }, {3}},
      {"Ctrl", [&] { ClickItem(1), ClickItem(3, kCtrl), ClickItem(5, kCtrl), ClickItem(3, kCtrl); }, {1, 5}},
      {"Shift", [&] { ClickItem(4), ClickItem(2, kShift); }, {2, 3, 4}},
      {"Shift again", [&] { ClickItem(4), ClickItem(2, kShift), ClickItem(6, kShift); }, {4, 5, 6}},
      {"Shift drops what Ctrl selected", [&] { ClickItem(1), ClickItem(7, kCtrl), ClickItem(9, kShift); }, {7, 8, 9}},
      {"Ctrl and Shift keep it",
       [&] { ClickItem(1), ClickItem(7, kCtrl), ClickItem(9, kShift | kCtrl); },
       {1, 7, 8, 9}},
      {"arrows", [&] { ClickItem(1), Press(Qt::Key_Down), Press(Qt::Key_Down, kShift); }, {2, 3}},
      {"Shift and arrow after Ctrl", [&] { ClickItem(1), ClickItem(7, kCtrl), Press(Qt::Key_Up, kShift); }, {6, 7}},
      {"End", [&] { ClickItem(7), Press(Qt::Key_End, kShift); }, {7, 8, 9}},
      {"Ctrl+A", [&] { Press(Qt::Key_A, kCtrl); }, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}},
  };
  for (const auto& [what, act, selected] : cases) {
    SCOPED_TRACE(what);
    act();
    EXPECT_EQ(Selected(), selected);
  }
}

TEST_F(ListWidgetTest, FollowsTheProgram) {
  ClickItem(2);
  form_->log.clear();
  ListBox& list = form_->lst;
  list.RemoveItem(0);
  list.SetList(3, "a name                                        /a/path/");
  list.AddItem("last");
  list.SetSelected(1, false);
  list.SetSelected(5, true);
  platform_.PumpEvents();
  EXPECT_EQ(View().model()->rowCount(), 10);
  EXPECT_EQ(View().model()->index(3, 0).data().toString(), "a name");
  EXPECT_EQ(View().model()->index(9, 0).data().toString(), "last");
  EXPECT_EQ(Selected(), std::vector<int>{5});
  EXPECT_THAT(form_->log, ElementsAre("lst", "lst")) << "the two changes, and no report of the rest";
  Press(Qt::Key_Down);
  EXPECT_EQ(Selected(), std::vector<int>{6});
  list.Clear();
  platform_.PumpEvents();
  EXPECT_EQ(View().model()->rowCount(), 0);
}

TEST_F(ListWidgetTest, TakesLocalFiles) {
  QMimeData data;
  data.setUrls({QUrl("file:///a/b%20c.jpg"), QUrl("https://example.org/x.jpg"), QUrl("file:///d")});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(View().viewport(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(View().viewport(), &drop);
  EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
  EXPECT_THAT(form_->log, ElementsAre("/a/b c.jpg", "/d"));
}

}  // namespace
}  // namespace quorvale
