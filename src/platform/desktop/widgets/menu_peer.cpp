#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <map>

#include "platform/common/deliver.h"
#include "platform/desktop/widgets/fitting.h"
#include "platform/desktop/widgets/qt_widgets.h"
#include "toolkit/menu.h"

namespace quorvale {
namespace {

class MenuPeer : public MenuBarPeer {
 public:
  MenuPeer(DialogWindow& window, MenuBar& bar);

  void Update(const MenuItem& item) override;

 private:
  void AddTopMenu(QMenuBar& bar, MenuItem& item);
  void AddItems(QMenu& menu, const MenuItem& item);
  void AddItem(QMenu& menu, MenuItem& item);

  DialogWindow& window_;
  std::map<const MenuItem*, QAction*> actions_;
};

MenuPeer::MenuPeer(DialogWindow& window, MenuBar& bar) : window_(window) {
  QMenuBar& qt_bar = window.AddMenuBar();
  for (const auto& menu : bar.Menus()) AddTopMenu(qt_bar, *menu);
  for (const auto& [item, action] : actions_) action->setEnabled(item->Enabled());
}

void MenuPeer::Update(const MenuItem& item) { actions_.at(&item)->setEnabled(item.Enabled()); }

void MenuPeer::AddTopMenu(QMenuBar& bar, MenuItem& item) {
  QMenu* const menu = bar.addMenu(Caption(item.Caption()));
  actions_[&item] = menu->menuAction();
  QObject::connect(menu, &QMenu::aboutToShow, &window_, [this, &item] {
    window_.SetMenusOpen();
    Deliver([&item] { item.UserClick(); });
  });
  QObject::connect(menu, &QMenu::aboutToHide, &window_, [this] { window_.CloseMenusSoon(); });
  AddItems(*menu, item);
}

void MenuPeer::AddItems(QMenu& menu, const MenuItem& item) {
  for (const auto& below : item.Items()) AddItem(menu, *below);
}

void MenuPeer::AddItem(QMenu& menu, MenuItem& item) {
  if (item.IsLine()) {
    actions_[&item] = menu.addSeparator();
  } else if (!item.Items().empty()) {
    QMenu* const submenu = menu.addMenu(Caption(item.Caption()));
    actions_[&item] = submenu->menuAction();
    AddItems(*submenu, item);
  } else {
    QAction* const action = menu.addAction(Caption(item.Caption()));
    actions_[&item] = action;
    if (!item.Shortcut().empty()) action->setShortcut(QKeySequence(Caption(item.Shortcut())));
    QObject::connect(action, &QAction::triggered, &window_, [this, &item] {
      window_.CloseMenus();
      Deliver([&item] { item.UserClick(); });
    });
  }
}

}  // namespace

std::unique_ptr<MenuBarPeer> QtWidgets::Make(WindowPeer& window, MenuBar& bar) {
  return std::make_unique<MenuPeer>(WindowOf(window), bar);
}

}  // namespace quorvale
