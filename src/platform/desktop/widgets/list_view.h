#pragma once

#include <QListView>

#include "platform/desktop/widgets/list_model.h"
#include "toolkit/list_box.h"

namespace quorvale {

// A list box. What the program changes is shown in the next pass of the event queue, all of it at once.
class ListView : public QListView {
  Q_OBJECT

 public:
  explicit ListView(ListBox& list);

  void NoteAdded();
  void NoteRemoved();
  void NoteChanged();
  void NoteSelected();

 protected:
  bool event(QEvent* event) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void RefreshSoon();
  void Refresh();
  void ShowSelection();
  void ReportSelection();

  ListBox& list_;
  ListModel model_;
  bool refresh_is_posted_ = false;
  bool is_removed_ = false;
  bool is_changed_ = false;
  bool is_silent_ = false;
};

}  // namespace quorvale
