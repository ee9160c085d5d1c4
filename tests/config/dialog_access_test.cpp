// What everybody needs who sees no captions or uses no mouse, in all dialogs of the program.

#include <cctype>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <typeindex>
#include <utility>
#include <vector>

#include "support/every_dialog.h"
#include "support/headless_fixture.h"
#include "toolkit/dialog_rules.h"
#include "toolkit/menu.h"

namespace quorvale {
namespace {

using ::testing::ElementsAre;

bool IsSeen(const Widget& control) {
  const Frame* const frame = control.Design().container;
  return control.Visible() && (frame == nullptr || IsSeen(*frame));
}

// The access key of a caption in lower case, or 0.
char AccessKeyOf(const std::string& caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[++i] != '&') return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[i])));
  }
  return 0;
}

// The access keys of what the user sees together.
class AccessKeys {
 public:
  explicit AccessKeys(std::set<std::string>& shared) : shared_(shared) {}

  void Add(const std::string& caption, const std::string& name) {
    const char key = AccessKeyOf(caption);
    if (key == 0) return;
    const auto [first, is_new] = names_.emplace(key, name);
    if (!is_new) shared_.insert(first->second + " and " + name);
  }
  void AddMenus(const std::vector<std::unique_ptr<MenuItem>>& items) {
    for (const auto& item : items) {
      Add(item->Caption(), item->Name());
      AccessKeys(shared_).AddMenus(item->Items());
    }
  }

 private:
  std::set<std::string>& shared_;
  std::map<char, std::string> names_;
};

using DialogAccessTest = HeadlessTest;

TEST_F(DialogAccessTest, EachControlIsNamed) {
  Process process{desktop, desktop.Services()};
  VisitDialogs(process, [](const Form& form) {
    std::map<std::pair<std::type_index, std::string>, std::string> named;
    form.ForEach<Widget>([&](const Widget& control) {
      const bool is_line = dynamic_cast<const Rule*>(&control) != nullptr;
      const bool is_group = dynamic_cast<const Frame*>(&control) != nullptr;
      if (is_line || is_group || !IsSeen(control)) return;
      const std::string name = SpokenName(control);
      EXPECT_NE(name, "") << form.Name() << "." << control.Name();
      if (!control.Acts()) return;
      EXPECT_GE(control.Design().tab_index, 0) << control.Name() << " is out of the keyboard's reach";
      const auto [other, is_new] = named.emplace(std::pair(std::type_index(typeid(control)), name), control.Name());
      EXPECT_TRUE(is_new) << control.Name() << " is spoken as " << other->second << ": " << name;
    });
  });
}

// The layout itself has four pairs: a menu goes before a control, and other keys visit both controls.
TEST_F(DialogAccessTest, AnAccessKeyHasOneMeaning) {
  Process process{desktop, desktop.Services()};
  std::set<std::string> shared;
  VisitDialogs(process, [&](const Form& form) {
    AccessKeys keys(shared);
    form.ForEach<MenuBar>([&](const MenuBar& bar) { keys.AddMenus(bar.Menus()); });
    form.ForEach<TabStrip>([&](const TabStrip& strip) {
      for (const TabStrip::Tab& tab : strip.Tabs()) keys.Add(tab.caption, strip.Name());
    });
    form.ForEach<Widget>([&](const Widget& control) {
      if (IsSeen(control)) keys.Add(control.Caption(), control.Name());
    });
  });
  EXPECT_THAT(shared, ElementsAre("Label1(0) and chkShowFileName", "chkShowFrame and cmdHelp",
                                  "mnuFile and cmdImages(0)", "mnuPlayList and OptPicture"));
}

}  // namespace
}  // namespace quorvale
