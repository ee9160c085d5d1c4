#include "platform/headless/headless_desktop.h"

#include "base/failure.h"
#include "support/headless_fixture.h"
#include "toolkit/scripted_form.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;

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

TEST_F(HeadlessTest, LoadsPicturesOnly) {
  desktop.files.AddDirectory("C:\\directory");
  for (const char* const content : {"", "picture 1 1", "picture 1 1 ff00", "picture 1 0 ff0000"}) {
    desktop.files.AddFile("C:\\p", content);
    EXPECT_EQ(FailureOf([&] { desktop.pictures.Load("C:\\p", {}); }), FailureNumber::kBadPicture) << content;
    EXPECT_FALSE(desktop.pictures.loads.back().loaded);
  }
  desktop.files.MakeUnreadable("C:\\p");
  for (const auto& [path, failure] : {std::pair{"C:\\directory\\", FailureNumber::kUnreadable},
                                      {"C:\\p", FailureNumber::kUnreadable},
                                      {"C:\\missing", FailureNumber::kNotFound}}) {
    EXPECT_EQ(FailureOf([&, name = path] { desktop.pictures.Load(name, {}); }), failure) << path;
  }
}

TEST_F(HeadlessTest, ScalesPicturesToTheirBoxAndClipsThem) {
  desktop.files.AddFile("C:\\p", PictureText(4, 2, {"ff0000", "00ff00"}));
  const auto picture = desktop.pictures.Load("C:\\p", {});
  Surface surface;
  surface.Resize(10, 1, 0);
  picture->Paint(surface.Pixels(), {-2, 0, 10, 1}, {1, 0, 8, 1});
  std::vector<Pixel> row(10);
  for (int x = 0; x < 10; ++x) row[static_cast<std::size_t>(x)] = RgbAt(surface, x, 0);
  EXPECT_THAT(row, ElementsAre(0, 0xFF0000, 0xFF0000, 0x00FF00, 0x00FF00, 0x00FF00, 0x00FF00, 0x00FF00, 0, 0));
}

}  // namespace
}  // namespace quorvale
