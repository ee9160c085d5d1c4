#include "platform/desktop/system/x11_windows.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <array>
#include <cstdlib>

#include "desktop/x_server.h"

namespace quorvale {
namespace {

class X11WindowsTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!server_.Runs()) GTEST_SKIP() << "Xvfb is not installed";
    // A program with windows, and the one that asks.
    program_ = server_.Connect();
    asker_ = server_.Connect();
    root_ = xcb_setup_roots_iterator(xcb_get_setup(program_.get())).data->root;
  }

  xcb_atom_t Atom(const std::string& name) { return quorvale::Atom(program_.get(), name); }

  xcb_window_t MakeWindow(xcb_window_t parent) {
    const xcb_window_t window = xcb_generate_id(program_.get());
    xcb_create_window(program_.get(), XCB_COPY_FROM_PARENT, window, parent, 0, 0, 10, 10, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
  }

  void SetText(xcb_window_t window, const std::string& property, const std::string& type, const std::string& text) {
    xcb_change_property(program_.get(), XCB_PROP_MODE_REPLACE, window, Atom(property), Atom(type), 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
  }

  // What the program has asked of the server is done.
  void Settle() { Atom("settled"); }

  XServer server_;
  XServer::Connection program_;
  XServer::Connection asker_;
  xcb_window_t root_ = 0;
};

TEST_F(X11WindowsTest, FindsExactTitlesAtTheTopAndInFrames) {
  const xcb_window_t frame = MakeWindow(MakeWindow(root_));
  const std::tuple<const char*, const char*, const char*, const char*, xcb_window_t, bool> cases[] = {
      {"modern name", "_NET_WM_NAME", "UTF8_STRING", "The Title", root_, true},
      {"old name", "WM_NAME", "STRING", "The Title", root_, true},
      {"in a frame", "_NET_WM_NAME", "UTF8_STRING", "The Title", frame, true},
      {"a control", "WM_NAME", "STRING", "The Title", MakeWindow(frame), false},
      {"longer", "WM_NAME", "STRING", "The Title!", root_, false},
      {"much longer", "WM_NAME", "STRING", "The Title and more of it", root_, false},
      {"shorter", "WM_NAME", "STRING", "The Titl", root_, false},
      {"other case", "WM_NAME", "STRING", "the title", root_, false},
      {"the icon's", "WM_ICON_NAME", "STRING", "The Title", root_, false},
  };
  for (const auto& [name, property, type, title, parent, found] : cases) {
    SCOPED_TRACE(name);
    const xcb_window_t window = MakeWindow(parent);
    SetText(window, property, type, title);
    Settle();
    EXPECT_EQ(FindTopLevelByTitle(asker_.get(), "The Title"), found ? window : 0);
    xcb_destroy_window(program_.get(), window);
  }
}

TEST_F(X11WindowsTest, WindowsThatComeAndGoDoNoHarm) {
  const xcb_window_t wanted = MakeWindow(root_);
  SetText(wanted, "WM_NAME", "STRING", "The Title");
  for (int round = 0; round < 200; ++round) {
    // These die while they are being asked.
    std::array<xcb_window_t, 20> windows{};
    for (xcb_window_t& window : windows) window = MakeWindow(MakeWindow(root_));
    Settle();
    for (const xcb_window_t window : windows) xcb_destroy_window(program_.get(), window);
    xcb_flush(program_.get());
    ASSERT_EQ(FindTopLevelByTitle(asker_.get(), "The Title"), wanted);
  }
}

TEST_F(X11WindowsTest, FindsTheActiveWindowAndWhetherAWindowIsThere) {
  EXPECT_EQ(ActiveWindow(asker_.get()), 0);
  const xcb_window_t window = MakeWindow(root_);
  xcb_change_property(program_.get(), XCB_PROP_MODE_REPLACE, root_, Atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 32, 1,
                      &window);
  Settle();
  EXPECT_EQ(ActiveWindow(asker_.get()), window);
  EXPECT_TRUE(WindowExists(asker_.get(), window));
  xcb_destroy_window(program_.get(), window);
  Settle();
  EXPECT_FALSE(WindowExists(asker_.get(), window));
  EXPECT_FALSE(WindowExists(asker_.get(), 0));
}

TEST_F(X11WindowsTest, ActivatingAsksTheWindowManager) {
  const std::uint32_t as_window_manager = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
  xcb_change_window_attributes(program_.get(), root_, XCB_CW_EVENT_MASK, &as_window_manager);
  const xcb_window_t window = MakeWindow(root_);
  const xcb_atom_t expected = Atom("_NET_ACTIVE_WINDOW");
  ActivateWindow(asker_.get(), window);
  xcb_generic_event_t* event = xcb_wait_for_event(program_.get());
  ASSERT_NE(event, nullptr);
  ASSERT_EQ(event->response_type & 0x7F, XCB_CLIENT_MESSAGE);
  const auto* message = reinterpret_cast<xcb_client_message_event_t*>(event);
  EXPECT_EQ(message->window, window);
  EXPECT_EQ(message->type, expected);
  EXPECT_EQ(message->format, 32);
  std::free(event);
}

TEST_F(X11WindowsTest, AServerThatIsGoneHasNoWindows) {
  server_.Stop();
  EXPECT_EQ(FindTopLevelByTitle(asker_.get(), "The Title"), 0);
  EXPECT_EQ(ActiveWindow(asker_.get()), 0);
  EXPECT_FALSE(WindowExists(asker_.get(), 1));
  ActivateWindow(asker_.get(), 1);
}

}  // namespace
}  // namespace quorvale
