#include "platform/headless/headless_desktop.h"

#include "support/headless_fixture.h"
#include "toolkit/scripted_form.h"

namespace quorvale {
namespace {

TEST_F(HeadlessTest, DesktopsAreIndependent) {
  HeadlessDesktop other;
  Application app(desktop);
  Application other_app(other);
  int ticks[2] = {};
  const auto form = std::make_shared<ScriptedForm>(app);
  const auto other_form = std::make_shared<ScriptedForm>(other_app);
  form->on_load = [&] { form->clock.SetEnabled(true); };
  form->clock.Elapsed = [&] { ++ticks[0]; };
  other_form->on_load = [&] { other_form->clock.SetEnabled(true); };
  other_form->clock.Elapsed = [&] {
    ++ticks[1];
    desktop.queue.Advance(200);
  };
  form->Show();
  other_form->Show();
  other.queue.Advance(300);
  EXPECT_EQ(ticks[0], 6);
  EXPECT_EQ(ticks[1], 3);
  EXPECT_EQ(other.windows.All().size(), 2U);
  EXPECT_EQ(app.forms.Count(), 1);
}

}  // namespace
}  // namespace quorvale
