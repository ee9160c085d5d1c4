#include <gmock/gmock.h>

#include "platform/win32/system/win32_programs.h"
#include "toolkit/entry_fields.h"
#include "toolkit/form.h"
#include "toolkit/panels.h"
#include "win32/toolkit/platform_fixture.h"

namespace quorvale {
namespace {

class Dialog : public Form {
 public:
  explicit Dialog(Application& app)
      : Form(app, "Dialog", WindowKind::kDialog, "Dialog"),
        label(*this, {.name = "label", .place = {150, 150, 900, 300}}),
        text(*this, {.name = "text", .place = {150, 600, 900, 300}, .tab_index = 0}, 0) {
    SetClientSize(3000, 1500);
  }

  HWND Handle() const { return reinterpret_cast<HWND>(Hwnd()); }

  Label label;
  TextBox text;
};

class DialogTest : public testing::Test {
 protected:
  DialogTest() {
    dialog_->Show();
    app_.PumpEvents();
  }
  ~DialogTest() override { dialog_->Unload(); }

  NoPictures pictures_;
  Win32Platform platform_{{"Title", PixelKind::kLogical, {}}, pictures_};
  Application app_{platform_};
  std::shared_ptr<Dialog> dialog_ = std::make_shared<Dialog>(app_);
};

TEST_F(DialogTest, AModalWindowHoldsTheOthersBackWhileItIsThere) {
  const auto modal = std::make_shared<Dialog>(app_);
  bool was_enabled = true;
  const auto timer = platform_.CreateTimerPeer([&] {
    was_enabled = IsWindowEnabled(dialog_->Handle()) != 0;
    modal->Unload();
  });
  timer->Set(20);
  modal->ShowModal();
  EXPECT_FALSE(was_enabled);
  EXPECT_TRUE(IsWindowEnabled(dialog_->Handle()));
}

TEST_F(DialogTest, ALabelHasTheColourThatItIsGiven) {
  dialog_->label.SetBackColor(0x0080FF);
  app_.PumpEvents();
  const HDC context = GetDC(dialog_->Handle());
  EXPECT_EQ(GetPixel(context, 30, 20), 0x0080FFU);
  ReleaseDC(dialog_->Handle(), context);
}

TEST_F(DialogTest, GrowsAsAWholeOnAMonitorOfAnotherResolution) {
  const auto widths = [this] {
    RECT client{};
    GetClientRect(dialog_->Handle(), &client);
    RECT box{};
    GetWindowRect(FindWindowExW(dialog_->Handle(), nullptr, L"EDIT", nullptr), &box);
    return std::pair(client.right, box.right - box.left);
  };
  const auto [client, box] = widths();
  RECT wanted{40, 30, 1000, 700};
  SendMessageW(dialog_->Handle(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&wanted));
  // As far as the screen allows.
  const auto [new_client, new_box] = widths();
  EXPECT_GT(new_client, client);
  EXPECT_NEAR(new_box * client, new_client * box, client);
  RECT place{};
  GetWindowRect(dialog_->Handle(), &place);
  EXPECT_EQ(place.left, 40);
}

TEST_F(DialogTest, TypesLargeAndSmallLettersIntoWhatHasTheFocus) {
  dialog_->text.SetFocus();
  Win32Programs().SendKeys("Qu");
  const ULONGLONG deadline = GetTickCount64() + 5'000;
  while (dialog_->text.Text().size() < 2 && GetTickCount64() < deadline) app_.PumpEvents();
  EXPECT_EQ(dialog_->text.Text(), "Qu");
}

}  // namespace
}  // namespace quorvale
