#include "platform/desktop/widgets/control_peer.h"
#include "platform/desktop/widgets/list_view.h"
#include "platform/desktop/widgets/qt_widgets.h"
#include "toolkit/list_box.h"

namespace quorvale {
namespace {

class ListPeer : public ListBoxPeer {
 public:
  ListPeer(WindowPeer& window, ListBox& list, std::unique_ptr<ListView> view)
      : view_(*view), shared_(window, list, std::move(view), [] {}) {}

  void Update(WidgetAspect aspect) override { shared_.Update(aspect); }
  void TakeFocus() override { shared_.TakeFocus(); }
  bool HasFocus() const override { return shared_.HasFocus(); }
  void ItemsAdded(int /*first*/, int /*count*/) override { view_.NoteAdded(); }
  void ItemsRemoved(int /*first*/, int /*count*/) override { view_.NoteRemoved(); }
  void ItemChanged(int /*index*/) override { view_.NoteChanged(); }
  void SelectionChanged() override { view_.NoteSelected(); }

 private:
  ListView& view_;
  ControlPeer shared_;
};

}  // namespace

std::unique_ptr<ListBoxPeer> QtWidgets::Make(WindowPeer& window, ListBox& list) {
  return std::make_unique<ListPeer>(window, list, std::make_unique<ListView>(list));
}

}  // namespace quorvale
