#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string_view>
#include <thread>

#include "platform/win32/system/system_text.h"
#include "platform/win32/system/win32_programs.h"
#include "platform/win32/widgets/system_dialogs.h"
#include "toolkit/buttons.h"
#include "toolkit/entry_fields.h"
#include "toolkit/form.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"
#include "toolkit/panels.h"
#include "win32/toolkit/platform_fixture.h"

#include <commctrl.h>
#include <commdlg.h>
#include <shlobj.h>

namespace quorvale {
namespace {

using testing::ElementsAre;

class Dialog : public Form {
 public:
  explicit Dialog(Application& app) : Form(app, "Dialog", WindowKind::kDialog, "Widgets") {
    SetClientSize(4800, 5250);
    cancel.is_cancel = true;
    cancel.Click = [this] { done.emplace_back("cancel"); };
    last.Click = [this] { done.emplace_back("last"); };
    bar.Add("menu", "&Menu").Add("item", "&Item", "Ctrl+I").Click = [this] { done.emplace_back("item"); };
  }

  HWND Handle() const { return reinterpret_cast<HWND>(Hwnd()); }

  Frame frame{*this, {.name = "frame", .caption = "Frame", .place = {0, 0, 4500, 3000}}, true};
  OptionButton first{*this, InFrame("&First", {150, 300, 1500, 300}, 0)};
  OptionButton second{*this, InFrame("&Second", {1800, 300, 1500, 300}, 1)};
  Button last{*this, InFrame("&Last", {150, 900, 1500, 300}, 6)};
  Label label{*this, {.name = "label", .caption = "&Text:", .place = {150, 3150, 900, 300}, .tab_index = 2}};
  TextBox text{*this, {.name = "text", .place = {1200, 3150, 900, 300}, .tab_index = 3}, 4};
  ListBox list{*this, {.name = "list", .place = {150, 3600, 3000, 1500}, .tab_index = 4}};
  Label title{*this, {.name = "title", .place = {2250, 3075, 1500, 450}}, {.one_line = true}};
  Button cancel{*this, {.name = "cancel", .caption = "Cancel", .place = {3300, 3600, 900, 300}, .tab_index = 5}};
  Rule line{*this, {.name = "line", .place = {3300, 4500, 900, 0}}, kBlack};
  Slider slider{
      *this, {.name = "slider", .place = {3300, 4050, 1200, 330}, .tool_tip = "Speed", .tab_index = 7}, 1, 20};
  MenuBar bar{*this, "bar"};
  std::vector<std::string> done;

 private:
  WidgetDesign InFrame(const char* caption, TwipRect place, int tab_index) {
    return {.name = caption, .caption = caption, .place = place, .tab_index = tab_index, .container = &frame};
  }
};

// Into the first field that takes text.
BOOL CALLBACK Type(HWND window, LPARAM text) {
  wchar_t name[20] = {};
  GetClassNameW(window, name, 20);
  if (std::wstring_view(name) != L"Edit" || IsWindowVisible(window) == 0) return TRUE;
  SendMessageW(window, WM_SETTEXT, 0, text);
  return FALSE;
}

class WidgetsTest : public testing::Test {
 protected:
  WidgetsTest() {
    dialog_->Show();
    app_.PumpEvents();
  }
  void TearDown() override { dialog_->Unload(); }

  void Press(WORD key, WORD modifier = 0) {
    BYTE state[256]{};
    GetKeyboardState(state);
    const BYTE before = state[modifier];
    if (modifier != 0) state[modifier] = 0x80;
    SetKeyboardState(state);
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
    app_.PumpEvents();
    state[modifier] = before;
    SetKeyboardState(state);
  }

  static std::string FocusText() {
    char text[80]{};
    GetWindowTextA(GetFocus(), text, sizeof text);
    return text;
  }

  HWND ListWindow() const { return FindWindowExW(Handle(), nullptr, L"ListBox", nullptr); }
  LRESULT AskList(UINT message, WPARAM first = 0) const { return SendMessageW(ListWindow(), message, first, 0); }

  // The window of a control that lies at that place of the form, in pixels.
  HWND At(int x, int y) const { return ChildWindowFromPointEx(Handle(), {x, y}, CWP_ALL); }

  HWND ToolTips() const {
    HWND tips = nullptr;
    while ((tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
      if (GetWindow(tips, GW_OWNER) == Handle()) return tips;
    }
    return nullptr;
  }

  std::string ToolTipOf(HWND control) const {
    std::wstring text(1000, L'\0');
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = Handle();
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = text.data();
    SendMessageW(ToolTips(), TTM_GETTEXTW, 999, reinterpret_cast<LPARAM>(&tool));
    return FromWide(text.c_str());
  }
  HWND Handle() const { return dialog_->Handle(); }

  void AddItems(int count) const {
    for (int i = 0; i < count; ++i) dialog_->list.AddItem("item " + std::to_string(i));
  }

  NoPictures pictures_;
  Win32Platform platform_{{"Title", PixelKind::kLogical, {}}, pictures_};
  Application app_{platform_};
  std::shared_ptr<Dialog> dialog_ = std::make_shared<Dialog>(app_);
};

TEST_F(WidgetsTest, TabFollowsTheIndicesAcrossFrames) {
  dialog_->first.SetValue(true);
  dialog_->first.SetFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 5; ++i) {
    order.push_back(FocusText());
    Press(VK_TAB);
  }
  EXPECT_THAT(order, ElementsAre("&First", "", "", "Cancel", "&Last"));  // text box and list have no caption
  Press(VK_TAB, VK_SHIFT);
  EXPECT_EQ(FocusText(), "&Last");
}

TEST_F(WidgetsTest, KeysPressButtonsAndMenuItems) {
  dialog_->list.SetFocus();
  Press(VK_ESCAPE);
  Press('I', VK_CONTROL);
  dialog_->last.SetFocus();
  Press(VK_RETURN);
  dialog_->bar.Item("item").SetEnabled(false);
  Press('I', VK_CONTROL);
  EXPECT_THAT(dialog_->done, ElementsAre("cancel", "item", "last"));
}

TEST_F(WidgetsTest, FocusLeavesADisabledControl) {
  dialog_->cancel.SetFocus();
  dialog_->cancel.SetEnabled(false);
  app_.PumpEvents();
  EXPECT_EQ(FocusText(), "&Last");
}

// A message sent by another thread runs inside the loop's wait and does not end it.
TEST_F(WidgetsTest, ASentCloseMessageEndsAModalWindow) {
  const UINT_PTR alarm = SetTimer(nullptr, 0, 5'000, nullptr);
  const ULONGLONG start = GetTickCount64();
  std::thread sender([window = Handle()] { SendMessageW(window, WM_CLOSE, 0, 0); });
  dialog_->ShowModal();
  EXPECT_LT(GetTickCount64() - start, 4'000U);
  sender.join();
  KillTimer(nullptr, alarm);
}

TEST_F(WidgetsTest, TextBoxFiltersKeys) {
  dialog_->text.KeyPress = [](int& code) {
    if (code != '7') code = 0;
  };
  dialog_->text.SetText("12345");
  EXPECT_EQ(dialog_->text.Text(), "1234");
  dialog_->text.SetText("1");
  dialog_->text.SetFocus();
  SendMessageW(GetFocus(), EM_SETSEL, 1, 1);
  for (const char c : {'x', '7', '8'}) SendMessageW(GetFocus(), WM_CHAR, static_cast<WPARAM>(c), 0);
  EXPECT_EQ(dialog_->text.Text(), "17");
}

TEST_F(WidgetsTest, CtrlASelectsAll) {
  dialog_->text.SetText("1234");
  dialog_->text.SetFocus();
  Press('A', VK_CONTROL);
  EXPECT_EQ(SendMessageW(GetFocus(), EM_GETSEL, 0, 0), MAKELRESULT(0, 4));
  AddItems(3);
  app_.PumpEvents();
  dialog_->list.SetFocus();
  Press('A', VK_CONTROL);
  EXPECT_EQ(dialog_->list.SelCount(), 3);
}

TEST_F(WidgetsTest, ListScrollsToTheSelectedItem) {
  AddItems(100);
  for (const int moved : {50, 49, 99}) {
    for (int i = 0; i < 100; ++i) dialog_->list.SetSelected(i, i == moved);
    dialog_->list.SetList(moved, "item that moved");
    app_.PumpEvents();
    EXPECT_EQ(AskList(LB_GETCARETINDEX), moved);
    EXPECT_THAT(moved - AskList(LB_GETTOPINDEX), testing::AllOf(testing::Ge(0), testing::Lt(10)));
  }
  wchar_t text[80] = {};  // what screen readers get
  SendMessageW(ListWindow(), LB_GETTEXT, 99, reinterpret_cast<LPARAM>(text));
  EXPECT_STREQ(text, L"item that moved");
}

TEST_F(WidgetsTest, TextThatDoesNotFitIsInTheToolTip) {
  const HWND label = At(15, 215);
  const HWND title = At(155, 210);
  const std::string path = "C:\\a\\path & that\\is\\far\\too\\long\\for\\its\\label\\";
  const std::tuple<Label&, HWND, std::string, bool> cases[] = {
      {dialog_->label, label, path, false},
      {dialog_->label, label, "C:\\", true},
      {dialog_->title, title, "Title in one line, not in two", false},
      {dialog_->title, title, "Title", true}};
  for (const auto& [control, window, text, fits] : cases) {
    control.SetCaption(LiteralCaption(text));
    EXPECT_EQ(ToolTipOf(window), fits ? "" : text);
  }
}

TEST_F(WidgetsTest, AModalWindowDisablesTheOthers) {
  const auto modal = std::make_shared<Dialog>(app_);
  bool was_enabled = true;
  const auto timer = platform_.CreateTimerPeer([&] {
    was_enabled = IsWindowEnabled(Handle()) != 0;
    modal->Unload();
  });
  timer->Set(20);
  modal->ShowModal();
  EXPECT_FALSE(was_enabled);
  EXPECT_TRUE(IsWindowEnabled(Handle()));
}

TEST_F(WidgetsTest, LabelShowsItsColour) {
  dialog_->label.SetBackColor(0x0080FF);
  app_.PumpEvents();
  const HDC context = GetDC(Handle());
  EXPECT_EQ(GetPixel(context, 65, 225), 0x0080FFU);
  ReleaseDC(Handle(), context);
}

LRESULT CALLBACK CountColourChanges(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR /*id*/,
                                    DWORD_PTR count) {
  if (message == WM_SYSCOLORCHANGE) ++*reinterpret_cast<int*>(count);
  return DefSubclassProc(window, message, first, second);
}

TEST_F(WidgetsTest, ControlsGetToKnowNewSystemColours) {
  int count = 0;
  SetWindowSubclass(ListWindow(), &CountColourChanges, 1, reinterpret_cast<DWORD_PTR>(&count));
  SendMessageW(Handle(), WM_SYSCOLORCHANGE, 0, 0);
  RemoveWindowSubclass(ListWindow(), &CountColourChanges, 1);
  EXPECT_EQ(count, 1);
}

LONG HeightOfFont(HWND window) {
  LOGFONTW font{};
  GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
  return std::abs(font.lfHeight);
}

// As far as the screen has room.
TEST_F(WidgetsTest, GrowsWithTheResolutionOfAnotherMonitor) {
  const auto widths = [this] {
    RECT client{};
    GetClientRect(Handle(), &client);
    RECT box{};
    GetWindowRect(ListWindow(), &box);
    return std::pair(client.right, box.right - box.left);
  };
  const auto [client, box] = widths();
  const HWND tips = ToolTips();
  const LONG tip_font = HeightOfFont(tips);
  const LRESULT tip_width = SendMessageW(tips, TTM_GETMAXTIPWIDTH, 0, 0);
  RECT wanted{40, 30, 1000, 700};
  SendMessageW(Handle(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&wanted));
  const auto [new_client, new_box] = widths();
  EXPECT_GT(new_client, client);
  EXPECT_NEAR(new_box * client, new_client * box, client);
  RECT place{};
  GetWindowRect(Handle(), &place);
  EXPECT_EQ(place.left, 40);
  EXPECT_NEAR(HeightOfFont(tips), 2 * tip_font, 1);
  EXPECT_EQ(SendMessageW(tips, TTM_GETMAXTIPWIDTH, 0, 0), 2 * tip_width);
}

TEST_F(WidgetsTest, FollowsTheUsersFontAndTextSize) {
  NONCLIENTMETRICSW usual{};
  usual.cbSize = sizeof usual;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof usual, &usual, 0);
  NONCLIENTMETRICSW large = usual;
  large.lfMessageFont.lfHeight = -15;
  std::wcscpy(large.lfMessageFont.lfFaceName, L"Arial");
  const std::shared_ptr<Dialog> first = std::exchange(dialog_, std::make_shared<Dialog>(app_));
  SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof large, &large, 0);
  dialog_->Show();
  SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof usual, &usual, 0);
  RECT client{};
  GetClientRect(Handle(), &client);
  EXPECT_EQ(client.right, 400) << "320 pixels times 15 to 12";
  LOGFONTW font{};
  GetObjectW(reinterpret_cast<HFONT>(SendMessageW(ListWindow(), WM_GETFONT, 0, 0)), sizeof font, &font);
  EXPECT_STREQ(font.lfFaceName, L"Arial");
  first->Unload();
}

// By what the dialog's buttons do: show the part for mixing, add the mixed colour, close.
TEST_F(WidgetsTest, MixedColoursAreKeptAfterCancel) {
  constexpr WPARAM kMix = 719;
  constexpr WPARAM kAdd = 712;
  const UINT_PTR user = SetTimer(nullptr, 0, 300, [](HWND, UINT, UINT_PTR, DWORD) {
    const HWND dialog = GetLastActivePopup(GetActiveWindow());
    for (const WPARAM button : {kMix, kAdd, static_cast<WPARAM>(IDCANCEL)}) {
      PostMessageW(dialog, WM_COMMAND, button, reinterpret_cast<LPARAM>(GetDlgItem(dialog, static_cast<int>(button))));
    }
  });
  OwnColours colours = EmptyOwnColours();
  EXPECT_EQ(ShowWin32ColourDialog(Handle(), 0x0080FF, colours), 0x0080FFU);
  KillTimer(nullptr, user);
  EXPECT_THAT(colours, testing::Contains(0x0080FFU));
}

TEST_F(WidgetsTest, SendKeysTypesBothCases) {
  dialog_->text.SetFocus();
  Win32Programs().SendKeys("Qu");
  const ULONGLONG deadline = GetTickCount64() + 5'000;
  while (dialog_->text.Text().size() < 2 && GetTickCount64() < deadline) app_.PumpEvents();
  EXPECT_EQ(dialog_->text.Text(), "Qu");
}

TEST_F(WidgetsTest, LinesAndSliderTicksAreVisible) {
  RECT line{};
  GetClientRect(At(250, 300), &line);
  EXPECT_EQ(line.bottom, 1);
  const HWND slider = At(225, 280);
  RECT place{};
  RECT thumb{};
  GetClientRect(slider, &place);
  SendMessageW(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
  EXPECT_EQ(SendMessageW(slider, TBM_GETNUMTICS, 0, 0), 20);
  EXPECT_LE(thumb.bottom, place.bottom - 4);
}

// The names of these two thousand files do not fit into a buffer of the usual 65,536 characters.
TEST_F(WidgetsTest, FileDialogReturnsManyFiles) {
  std::wstring names;
  for (int i = 0; i < 2'000; ++i) names += L"\"a file with a name of some length " + std::to_wstring(i) + L".bmp\" ";
  static const std::wstring* typed = nullptr;
  typed = &names;
  const UINT_PTR user = SetTimer(nullptr, 0, 300, [](HWND, UINT, UINT_PTR, DWORD) {
    const HWND dialog = FindWindowW(nullptr, L"Pick");
    if (dialog == nullptr || IsWindowVisible(dialog) == 0 || typed == nullptr) return;
    EnumChildWindows(dialog, &Type, reinterpret_cast<LPARAM>(std::exchange(typed, nullptr)->c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  });
  const std::string chosen =
      platform_.ShowFileDialog(dialog_->Window(), {.title = "Pick", .flags = kOfnAllowMultiSelect | kOfnExplorer});
  KillTimer(nullptr, user);
  EXPECT_GT(chosen.size(), 65'536U);
  EXPECT_EQ(std::count(chosen.begin(), chosen.end(), '\0'), 2'000);
}

TEST_F(WidgetsTest, ListTakesDroppedFiles) {
  std::vector<std::string> dropped;
  dialog_->list.Dropped = [&](const std::vector<std::string>& paths) { dropped = paths; };
  constexpr wchar_t kPaths[] = L"C:\\one.bmp\0D:\\\u00E4.wav\0";
  HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(DROPFILES) + sizeof kPaths);
  auto* const files = static_cast<DROPFILES*>(GlobalLock(memory));
  *files = {};
  files->pFiles = sizeof(DROPFILES);
  files->fWide = TRUE;
  std::memcpy(files + 1, kPaths, sizeof kPaths);
  GlobalUnlock(memory);
  SendMessageW(ListWindow(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
  EXPECT_THAT(dropped, ElementsAre("C:\\one.bmp", "D:\\\u00E4.wav"));
}

TEST_F(WidgetsTest, ListHoldsTenThousandItems) {
  const ULONGLONG start = GetTickCount64();
  AddItems(10'000);
  for (int i = 0; i < 10'000; ++i) dialog_->list.SetSelected(i, i / 100 % 2 == 1);
  app_.PumpEvents();
  EXPECT_EQ(AskList(LB_GETCOUNT), 10'000);
  EXPECT_EQ(AskList(LB_GETSELCOUNT), 5'000);
  dialog_->list.RemoveItem(0);
  app_.PumpEvents();
  EXPECT_EQ(AskList(LB_GETSEL, 99), 1);
  EXPECT_EQ(AskList(LB_GETSEL, 199), 0);
  dialog_->list.SetFocus();
  Press(VK_END);
  EXPECT_EQ(dialog_->list.SelCount(), 1);
  EXPECT_TRUE(dialog_->list.Selected(9'998));
  dialog_->list.Clear();
  app_.PumpEvents();
  EXPECT_EQ(AskList(LB_GETCOUNT), 0);
  EXPECT_LT(GetTickCount64() - start, 20'000U);
}

}  // namespace
}  // namespace quorvale
