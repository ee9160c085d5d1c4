#include "toolkit/form.h"

#include <stdexcept>

#include "base/failure.h"
#include "support/headless_fixture.h"
#include "toolkit/scripted_form.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FormTest : public HeadlessTest {
 protected:
  std::shared_ptr<ScriptedForm> Loaded(const std::string& name = "Form") {
    auto form = std::make_shared<ScriptedForm>(app, name);
    form->Load();
    return form;
  }

  Application app{desktop};
};

TEST_F(FormTest, LoadsThenShows) {
  const auto first = Loaded("First");
  const auto form = std::make_shared<ScriptedForm>(app, "Second");
  form->on_load = [&] {
    EXPECT_EQ(&app.forms[1], form.get());
    EXPECT_FALSE(form->Visible());
    EXPECT_EQ(form->box.Width(), 1500);
    form->Move(300, 150, 3000, 1500);
  };
  form->Show();
  form->Show();
  EXPECT_THAT(form->events, ElementsAre("Load"));
  EXPECT_TRUE(form->Visible());
  const HeadlessWindow& window = *desktop.windows.Find(form->Hwnd());
  EXPECT_TRUE(window.visible);
  EXPECT_EQ(window.title, "Second caption");
  EXPECT_EQ(window.bounds, (PixelRect{20, 10, 194, 75}));
  EXPECT_EQ(desktop.windows.Find(form->box.Hwnd())->bounds, (PixelRect{10, 0, 100, 40}));
  EXPECT_EQ(FailureOf([&] { app.forms[2]; }), FailureNumber::kNoSuchEntry);
}

TEST_F(FormTest, IsRemovedWhenLoadFails) {
  const std::function<void()> failures[] = {
      [] { throw Failure(FailureNumber::kUnreadable, "No", "Test"); },
      [] { throw std::runtime_error("No"); },
      [] { throw ProcessEnded(); },
  };
  for (const auto& fail : failures) {
    const auto form = std::make_shared<ScriptedForm>(app);
    form->on_load = [&] {
      form->clock.SetEnabled(true);
      fail();
    };
    EXPECT_ANY_THROW(form->Show());
    EXPECT_FALSE(form->IsLoaded());
    EXPECT_EQ(app.forms.Count(), 0);
    EXPECT_THAT(desktop.windows.All(), IsEmpty());
    EXPECT_EQ(desktop.queue.RunningTimers(), 0);
    EXPECT_THAT(form->events, ElementsAre("Load"));
  }
}

TEST_F(FormTest, UnloadRunsBothHandlersAndDestroys) {
  const auto form = Loaded();
  const WindowHandle window = form->Hwnd();
  int gone = 0;
  app.last_form_gone = [&] { ++gone; };
  const auto other = Loaded("Other");
  form->Unload();
  EXPECT_EQ(gone, 0);
  other->Unload();
  EXPECT_EQ(gone, 1);
  form->Unload();
  EXPECT_THAT(form->events, ElementsAre("Load", "QueryUnload", "Unload"));
  EXPECT_FALSE(desktop.windows.IsWindow(window));
  EXPECT_THAT(desktop.windows.All(), IsEmpty());
  EXPECT_EQ(gone, 1);
}

TEST_F(FormTest, CancelledUnloadKeepsTheFormRunning) {
  const auto form = Loaded();
  int ticks = 0;
  bool refuse = true;
  form->clock.Elapsed = [&] { ++ticks; };
  form->clock.SetEnabled(true);
  form->on_query_unload = [&](bool& cancel) {
    // Asked for again from inside: nothing happens.
    form->Unload();
    desktop.queue.Advance(100);
    cancel = refuse;
  };
  form->Unload();
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_EQ(ticks, 1);
  refuse = false;
  form->Unload();
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_EQ(ticks, 2);
  desktop.queue.Advance(1000);
  EXPECT_EQ(ticks, 2);
  EXPECT_THAT(form->events, ElementsAre("Load", "QueryUnload", "QueryUnload", "Unload"));
}

TEST_F(FormTest, FailedQueryKeepsTheFormAndFailedUnloadDoesNot) {
  const auto form = Loaded();
  form->on_query_unload = [](bool&) { throw std::runtime_error("No"); };
  EXPECT_THROW(form->Unload(), std::runtime_error);
  EXPECT_TRUE(form->IsLoaded());
  form->on_query_unload = nullptr;
  form->on_unload = [] { throw std::runtime_error("No"); };
  EXPECT_THROW(form->Unload(), std::runtime_error);
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_THAT(desktop.windows.All(), IsEmpty());
}

TEST_F(FormTest, IsNotShownWhenLoadUnloadsIt) {
  const auto form = std::make_shared<ScriptedForm>(app);
  form->on_load = [&] { form->Unload(); };
  form->Show();
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_THAT(desktop.windows.All(), IsEmpty());
}

TEST_F(FormTest, CallsFailOnceUnloaded) {
  const auto form = Loaded();
  form->Unload();
  PictureBox& box = form->box;
  const std::function<void()> uses[] = {[&] { form->Visible(); },
                                        [&] { form->Hwnd(); },
                                        [&] { form->clock.SetInterval(5); },
                                        [&] { form->clock.SetEnabled(true); },
                                        [&] { box.Width(); },
                                        [&] { box.Hwnd(); },
                                        [&] { box.Cls(); },
                                        [&] { box.Line(0, 0, 9, 9, kWhite); },
                                        [&] { box.LineBox(0, 0, 9, 9, kWhite); },
                                        [&] { box.Circle(0, 0, 9); },
                                        [&] { box.PSet(0, 0, kWhite); },
                                        [&] { box.Print("x"); },
                                        [&] { box.TextWidth("x"); },
                                        [&] { box.LoadPicture("x", nullptr); },
                                        [&] { box.OpenPacedRun(); },
                                        [&] { box.TakeFocus(); },
                                        [&] { form->image_below.Left(); },
                                        [&] { form->image_below.SetHeight(1); },
                                        [&] { form->image_below.SetPicture(nullptr); }};
  for (std::size_t i = 0; i < std::size(uses); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(FailureOf(uses[i]), FailureNumber::kNotLoaded);
  }
  // These only set a value.
  form->image_below.SetVisible(true);
  form->box.SetBackColor(kWhite);
}

// The window that delivers the key must outlive its own event, and the form its handler.
TEST_F(FormTest, OutlivesTheHandlerThatUnloadsIt) {
  auto form = Loaded();
  form->Show();
  form->clock.SetEnabled(true);
  const WindowHandle window = form->Hwnd();
  const std::weak_ptr<ScriptedForm> watch = form;
  form->on_key = [&](int) {
    watch.lock()->Unload();
    form.reset();
    EXPECT_EQ(watch.lock()->events.back(), "Unload");
    EXPECT_FALSE(desktop.windows.Find(window)->visible);
    EXPECT_EQ(desktop.queue.RunningTimers(), 0);
  };
  EXPECT_TRUE(desktop.PressKey(window, 27));
  EXPECT_EQ(app.forms.Count(), 0);

  const auto next = Loaded("Next");
  desktop.PressKey(next->Hwnd(), 1);
  EXPECT_TRUE(watch.expired());
  EXPECT_FALSE(desktop.windows.IsWindow(window));
}

TEST_F(FormTest, EventsReachTheirHandlers) {
  const auto form = Loaded();
  desktop.PressKey(form->Hwnd(), 65);
  desktop.MoveMouse(form->Hwnd());
  desktop.PressMouse(form->Hwnd());
  desktop.windows.EnableWindow(form->Hwnd(), false);
  EXPECT_FALSE(desktop.RequestClose(form->Hwnd()));
  EXPECT_FALSE(desktop.PressKey(form->box.Hwnd(), 65));
  desktop.windows.EnableWindow(form->Hwnd(), true);
  desktop.RequestClose(form->Hwnd());
  EXPECT_THAT(form->events, ElementsAre("Load", "KeyDown 65", "MouseMove", "MouseDown", "QueryUnload", "Unload"));
}

TEST_F(FormTest, FindsControlsByNameAndType) {
  const auto form = Loaded();
  EXPECT_EQ(&form->Find<Timer>("clock"), &form->clock);
  EXPECT_EQ(FailureOf([&] { form->Find<Timer>("Box"); }), FailureNumber::kNoSuchEntry);
  EXPECT_EQ(FailureOf([&] { form->Find<Timer>("Nothing"); }), FailureNumber::kNoSuchEntry);
}

TEST_F(FormTest, ShowsFailuresOfHandlersInABox) {
  const auto form = Loaded();
  form->on_key = [](int key) {
    if (key == 1) throw Failure(FailureNumber::kUnreadable, "Can't be read", "Test");
    if (key == 2) throw std::runtime_error("Out of luck");
    throw ProcessEnded();
  };
  desktop.boxes.Answer([&](const MessageBox&) {
    // The window lives while the box is up.
    desktop.MoveMouse(form->Hwnd());
    return MessageBoxAnswer::kOk;
  });
  desktop.boxes.Answer(MessageBoxAnswer::kOk);
  desktop.PressKey(form->Hwnd(), 1);
  desktop.PressKey(form->Hwnd(), 2);
  EXPECT_THROW(desktop.PressKey(form->Hwnd(), 3), ProcessEnded);
  ASSERT_EQ(desktop.boxes.shown.size(), 2U);
  EXPECT_EQ(desktop.boxes.shown[0].text, "Can't be read");
  EXPECT_EQ(desktop.boxes.shown[1].text, "Out of luck");
  // No handler is running, so an unloaded form is destroyed at once.
  form->Unload();
  EXPECT_THAT(desktop.windows.All(), IsEmpty());
}

// The process may end, and its application go, with forms loaded that somebody else still holds.
TEST_F(FormTest, ApplicationDestroysItsFormsWithoutHandlers) {
  std::shared_ptr<ScriptedForm> form;
  {
    Application inner(desktop);
    form = std::make_shared<ScriptedForm>(inner);
    form->Load();
    form->on_key = [](int) { throw ProcessEnded(); };
    EXPECT_THROW(desktop.PressKey(form->Hwnd(), 1), ProcessEnded);
  }
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_THAT(desktop.windows.All(), IsEmpty());
  EXPECT_THAT(form->events, ElementsAre("Load", "KeyDown 1"));
}

}  // namespace
}  // namespace quorvale
