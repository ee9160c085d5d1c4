#pragma once

#include <QAction>
#include <QMenu>
#include <map>

#include "platform/desktop/widgets/dialog_window.h"
#include "toolkit/menu.h"
#include "toolkit/widget_peer.h"

namespace quorvale {

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

}  // namespace quorvale
