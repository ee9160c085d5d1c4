#include "platform/desktop/widgets/list_view.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QItemSelection>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QUrl>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/common/deliver.h"

namespace quorvale {
namespace {

const QEvent::Type kRefresh = static_cast<QEvent::Type>(QEvent::registerEventType());

std::vector<std::string> LocalPaths(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) paths.push_back(QFile::encodeName(url.toLocalFile()).toStdString());
  }
  return paths;
}

void AcceptFiles(QDragMoveEvent& event) {
  if (LocalPaths(*event.mimeData()).empty()) {
    event.ignore();
  } else {
    event.setDropAction(Qt::CopyAction);
    event.accept();
  }
}

}  // namespace

ListView::ListView(ListBox& list) : list_(list), model_(list) {
  setSelectionMode(ExtendedSelection);
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideMiddle);
  setAcceptDrops(true);
  setModel(&model_);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { ReportSelection(); });
  RefreshSoon();
}

void ListView::NoteAdded() { RefreshSoon(); }

void ListView::NoteRemoved() {
  is_removed_ = true;
  RefreshSoon();
}

void ListView::NoteChanged() {
  is_changed_ = true;
  RefreshSoon();
}

void ListView::NoteSelected() { RefreshSoon(); }

bool ListView::event(QEvent* event) {
  if (event->type() != kRefresh) return QListView::event(event);
  refresh_is_posted_ = false;
  Refresh();
  return true;
}

// Shift alone selects from the anchor to the item and nothing else.
QItemSelectionModel::SelectionFlags ListView::selectionCommand(const QModelIndex& index, const QEvent* event) const {
  QItemSelectionModel::SelectionFlags flags = QListView::selectionCommand(index, event);
  const auto* const input = dynamic_cast<const QInputEvent*>(event);
  const bool is_shift_alone = input != nullptr && input->modifiers().testFlag(Qt::ShiftModifier) &&
                              !input->modifiers().testFlag(Qt::ControlModifier);
  if (is_shift_alone && flags.testFlag(QItemSelectionModel::Current)) flags |= QItemSelectionModel::Clear;
  return flags;
}

void ListView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Delete) {
    Deliver([this] { list_.UserDelete(); });
  } else {
    QListView::keyPressEvent(event);
  }
}

void ListView::dragEnterEvent(QDragEnterEvent* event) { AcceptFiles(*event); }

void ListView::dragMoveEvent(QDragMoveEvent* event) { AcceptFiles(*event); }

void ListView::dropEvent(QDropEvent* event) {
  const std::vector<std::string> paths = LocalPaths(*event->mimeData());
  if (paths.empty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  Deliver([&] { list_.UserDrop(paths); });
}

void ListView::RefreshSoon() {
  if (!std::exchange(refresh_is_posted_, true)) QCoreApplication::postEvent(this, new QEvent(kRefresh));
}

void ListView::Refresh() {
  is_silent_ = true;
  if (std::exchange(is_removed_, false)) {
    const int scrolled = verticalScrollBar()->value();
    const int current = currentIndex().row();
    model_.Reset();
    const int row = std::min(current, model_.rowCount() - 1);
    if (row >= 0) selectionModel()->setCurrentIndex(model_.index(row), QItemSelectionModel::NoUpdate);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(scrolled);
  } else {
    model_.Grow();
  }
  if (std::exchange(is_changed_, false)) model_.ItemsChanged();
  ShowSelection();
  is_silent_ = false;
}

void ListView::ShowSelection() {
  QItemSelection selection;
  int first_of_run = -1;
  for (int row = 0; row <= model_.rowCount(); ++row) {
    const bool is_selected = row < model_.rowCount() && list_.Selected(row);
    if (is_selected && first_of_run < 0) first_of_run = row;
    if (is_selected || first_of_run < 0) continue;
    selection.append(QItemSelectionRange(model_.index(first_of_run), model_.index(row - 1)));
    first_of_run = -1;
  }
  if (selection == selectionModel()->selection()) return;
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  // One item that the program has selected is where the keyboard goes on.
  if (list_.SelCount() != 1) return;
  selectionModel()->setCurrentIndex(selection.first().topLeft(), QItemSelectionModel::NoUpdate);
  scrollTo(currentIndex());
}

void ListView::ReportSelection() {
  if (is_silent_) return;
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      if (row < list_.ListCount()) rows.push_back(row);
    }
  }
  Deliver([&] { list_.UserSelect(rows); });
}

}  // namespace quorvale
