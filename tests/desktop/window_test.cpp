#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include "base/failure.h"
#include "desktop/window_fixture.h"
#include "toolkit/nonvisual_controls.h"

namespace quorvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr QPoint kSomewhere(100, 50);

class WindowTest : public WindowFixture {
 protected:
  static QWindow* OtherMonitorsWindow() {
    for (QWindow* const window : QGuiApplication::topLevelWindows()) {
      if (window->isVisible() && window->geometry() == QRect(800, 0, 640, 480)) return window;
    }
    return nullptr;
  }
};

TEST_F(WindowTest, CoversThePrimaryMonitorAndKeepsItsHandle) {
  EXPECT_EQ(platform_.Screen().width, 800);
  EXPECT_EQ(platform_.Screen().height, 600);
  EXPECT_EQ(platform_.Screen().scale, 1);
  const WindowHandle handle = window_->Handle();
  platform_.Windows().SetWindowPos(handle, kHwndTopmost, 0, 0, 0, 0, kSwpNoSizeNoMove);
  Show();
  EXPECT_EQ(window_->Handle(), handle);
  EXPECT_EQ(FormWindow().geometry(), QRect(0, 0, 800, 600));
  EXPECT_TRUE(FormWindow().flags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_EQ(FormWindow().title(), "Fixture");
}

TEST_F(WindowTest, PassesKeysToTheBoxAndMouseEventsToEach) {
  AddSurface({10, 10, 300, 200});
  Show();
  PressKey(FormWindow(), Qt::Key_A);
  PressKey(BoxWindow(), Qt::Key_Shift);
  PressMouse(FormWindow(), kSomewhere);
  PressMouse(BoxWindow(), kSomewhere);
  MoveMouse(FormWindow(), QPoint(500, 300));
  MoveMouse(BoxWindow(), kSomewhere);
  EXPECT_THAT(log, ElementsAre("key 65", "key 16", "form press", "box press 100 50", "form move", "box move 100 50"));
}

TEST_F(WindowTest, IgnoresMovesOfAPointerAtRest) {
  AddSurface();
  Show();
  MoveMouse(BoxWindow(), QCursor::pos());
  QEnterEvent enter(kSomewhere, kSomewhere, kSomewhere);
  QCoreApplication::sendEvent(&BoxWindow(), &enter);
  MoveMouse(BoxWindow(), kSomewhere);
  EXPECT_THAT(log, IsEmpty());
}

// Another program may ask the preview's box to close.
TEST_F(WindowTest, ReportsACloseRequestAndStays) {
  AddSurface();
  Show();
  const auto hook = platform_.CreateMessageHookPeer([this](int message) { log.push_back(std::to_string(message)); });
  hook->Watch(surface_peer_->Handle());
  hook->Report(kWmClose);
  for (QWindow* const window : {&FormWindow(), &BoxWindow()}) {
    QCloseEvent close;
    QCoreApplication::sendEvent(window, &close);
    EXPECT_FALSE(close.isAccepted());
    EXPECT_TRUE(window->isVisible());
  }
  EXPECT_THAT(log, ElementsAre("close", std::to_string(kWmClose)));
}

TEST_F(WindowTest, TakesNoInputWhileItIsDisabled) {
  AddSurface();
  Show();
  platform_.Windows().EnableWindow(window_->Handle(), false);
  PressKey(FormWindow(), Qt::Key_A);
  PressMouse(BoxWindow(), kSomewhere);
  MoveMouse(BoxWindow(), kSomewhere);
  EXPECT_THAT(log, IsEmpty());
  platform_.Windows().EnableWindow(window_->Handle(), true);
  PressKey(FormWindow(), Qt::Key_A);
  EXPECT_THAT(log, ElementsAre("key 65"));
}

TEST_F(WindowTest, KeepsOtherMonitorsBlackAndReportsTheirInput) {
  EXPECT_EQ(OtherMonitorsWindow(), nullptr);
  Show();
  const QPointer<QWindow> other = OtherMonitorsWindow();
  ASSERT_NE(other, nullptr);
  const QImage image = other->screen()->grabWindow(other->winId()).toImage();
  EXPECT_EQ(image.pixel(320, 240), ToPixel(kBlack));
  PressKey(*other, Qt::Key_Control);
  PressMouse(*other, kSomewhere);
  MoveMouse(*other, kSomewhere);
  EXPECT_THAT(log, ElementsAre("key 17", "form press", "form move"));
  window_->SetVisible(false);
  EXPECT_EQ(OtherMonitorsWindow(), nullptr);
  EXPECT_FALSE(other.isNull()) << "it may be delivering the event that ends the show";
}

TEST_F(WindowTest, SharesOtherMonitorsWithWindowsOfTheirOwn) {
  window_.reset();
  window_ = platform_.CreateWindowPeer(WindowKind::kSharedSaver, *this);
  window_->SetBounds(kMonitor);
  Show();
  EXPECT_EQ(OtherMonitorsWindow(), nullptr);
  const std::vector<PixelRect> places = platform_.FurtherMonitors();
  ASSERT_THAT(places, ElementsAre(PixelRect{800, 0, 640, 480}));
  const auto other = platform_.CreateWindowPeer(WindowKind::kMonitor, *this);
  other->SetBounds(places[0]);
  other->SetVisible(true);
  ASSERT_NE(OtherMonitorsWindow(), nullptr);
  PressKey(*OtherMonitorsWindow(), Qt::Key_Control);
  EXPECT_THAT(log, ElementsAre("key 17"));
  EXPECT_TRUE(OtherMonitorsWindow()->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
}

TEST_F(WindowTest, IsFoundByItsTitleAndByOtherRunsOnlyWhileItShows) {
  TitleLock other_run("offscreen ");
  EXPECT_EQ(platform_.Windows().FindWindow("Fixture"), window_->Handle());
  EXPECT_EQ(platform_.Windows().FindWindow("Another"), 0U);
  EXPECT_FALSE(other_run.IsClaimed("Fixture"));
  Show();
  EXPECT_TRUE(other_run.IsClaimed("Fixture"));
  window_->SetVisible(false);
  EXPECT_FALSE(other_run.IsClaimed("Fixture"));

  ASSERT_TRUE(other_run.Claim("Another"));
  EXPECT_NE(platform_.Windows().FindWindow("Another"), 0U);
}

// Of two runs that start together neither finds the other.
TEST_F(WindowTest, ClosesIfAnotherRunWasFaster) {
  TitleLock other_run("offscreen ");
  ASSERT_TRUE(other_run.Claim("Fixture"));
  Show();
  EXPECT_FALSE(FormWindow().isVisible());
  EXPECT_THAT(log, ElementsAre("close"));
}

TEST_F(WindowTest, KnowsItsWindowsByTheirHandles) {
  AddSurface();
  Show();
  WindowSystem& windows = platform_.Windows();
  const WindowHandle box = surface_peer_->Handle();
  EXPECT_TRUE(windows.IsWindow(window_->Handle()));
  EXPECT_TRUE(windows.IsWindow(box));
  EXPECT_FALSE(windows.IsWindow(0));
  surface_peer_.reset();
  EXPECT_FALSE(windows.IsWindow(box));
  windows.EnableWindow(box, false);
  EXPECT_THROW(windows.ActivateWindow("Display Properties"), Failure);
}

TEST_F(WindowTest, HidesTheCursorWhileItsCountIsBelowZero) {
  WindowSystem& windows = platform_.Windows();
  const auto is_hidden = [] {
    return QGuiApplication::overrideCursor() != nullptr &&
           QGuiApplication::overrideCursor()->shape() == Qt::BlankCursor;
  };
  EXPECT_FALSE(is_hidden());
  for (int count = -1; count >= -6; --count) {
    EXPECT_EQ(windows.ShowCursor(false), count);
    EXPECT_TRUE(is_hidden());
  }
  for (int count = -5; count <= 6; ++count) {
    EXPECT_EQ(windows.ShowCursor(true), count);
    EXPECT_EQ(is_hidden(), count < 0);
  }
}

struct BoxCase {
  MessageBox box;
  QMessageBox::StandardButton press = QMessageBox::NoButton;
  MessageBoxAnswer answer = MessageBoxAnswer::kNone;
};

TEST_F(WindowTest, ShowsAMessageBoxAboveTheShow) {
  Show();
  const BoxCase cases[] = {
      {{"one\rtwo", "Program Error", MessageBoxButtons::kAbortRetryIgnore, MessageBoxIcon::kExclamation},
       QMessageBox::Retry,
       MessageBoxAnswer::kRetry},
      {{"text", "", MessageBoxButtons::kYesNoCancel, MessageBoxIcon::kQuestion},
       QMessageBox::No,
       MessageBoxAnswer::kNo},
      {{"text", "", MessageBoxButtons::kOk, MessageBoxIcon::kNone}, QMessageBox::Ok, MessageBoxAnswer::kOk},
  };
  for (const BoxCase& c : cases) {
    QTimer::singleShot(0, [&c] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->windowTitle().toStdString(), c.box.title.empty() ? "Title of the program" : c.box.title);
      EXPECT_FALSE(box->text().contains('\r'));
      EXPECT_TRUE(box->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
      EXPECT_TRUE(QRect(0, 0, 800, 600).contains(box->geometry()));
      box->button(c.press)->click();
    });
    EXPECT_EQ(platform_.ShowMessageBox(c.box), c.answer);
  }
}

TEST_F(WindowTest, RunsDeferredDeletionsInAPass) {
  const QPointer<QObject> object = new QObject;
  object->deleteLater();
  platform_.PumpEvents();
  EXPECT_TRUE(object.isNull());
}

}  // namespace
}  // namespace quorvale
