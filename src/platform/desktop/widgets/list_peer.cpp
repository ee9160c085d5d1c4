#include <QAbstractListModel>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QItemSelection>
#include <QKeyEvent>
#include <QListView>
#include <QMimeData>
#include <QScrollBar>
#include <QUrl>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/common/deliver.h"
#include "platform/desktop/widgets/qt_widgets.h"
#include "toolkit/list_box.h"

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

// The part of an item that the list shows. What follows a long run of blanks is out of sight.
QString SeenText(const std::string& item) {
  constexpr char kLongRun[] = "                ";
  const std::size_t end = item.find_last_not_of(' ', item.find(kLongRun));
  return QString::fromStdString(item.substr(0, end + 1));
}

// The items of a list box for Qt. They stay in the control; the model only keeps how many of them the view knows of.
class ListModel : public QAbstractListModel {
 public:
  explicit ListModel(const ListBox& list) : list_(list), rows_(list.ListCount()) {}

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  QVariant data(const QModelIndex& index, int role) const override;

  // Items have been added at the end, and nothing else has changed.
  void Grow();
  void ItemsChanged();
  // Anything may have changed.
  void Reset();

 private:
  const ListBox& list_;
  int rows_;
};

QVariant ListModel::data(const QModelIndex& index, int role) const {
  const bool is_there = index.isValid() && index.row() < list_.ListCount();
  if (!is_there || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) return {};
  return SeenText(list_.List(index.row()));
}

void ListModel::Grow() {
  if (list_.ListCount() <= rows_) return;
  beginInsertRows({}, rows_, list_.ListCount() - 1);
  rows_ = list_.ListCount();
  endInsertRows();
}

void ListModel::ItemsChanged() {
  if (rows_ > 0) Q_EMIT dataChanged(index(0), index(rows_ - 1));
}

void ListModel::Reset() {
  beginResetModel();
  rows_ = list_.ListCount();
  endResetModel();
}

// Changes by the program are shown all at once in the next pass of the event queue.
class ListView : public QListView {
 public:
  explicit ListView(ListBox& list);

  // What the next refresh has to take over.
  void RefreshAfterRemoval();
  void RefreshAfterChange();
  void RefreshSoon();

 protected:
  bool event(QEvent* event) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void Refresh();
  void ShowSelection();
  void ReportSelection();

  ListBox& list_;
  ListModel model_;
  bool refresh_is_posted_ = false;
  bool is_removed_ = false;
  bool is_changed_ = false;
  bool is_refreshing_ = false;
};

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

void ListView::RefreshAfterRemoval() {
  is_removed_ = true;
  RefreshSoon();
}

void ListView::RefreshAfterChange() {
  is_changed_ = true;
  RefreshSoon();
}

bool ListView::event(QEvent* event) {
  if (event->type() != kRefresh) return QListView::event(event);
  refresh_is_posted_ = false;
  Refresh();
  return true;
}

// Shift without Ctrl selects from the anchor to the item, and deselects all else.
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
  is_refreshing_ = true;
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
  is_refreshing_ = false;
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
  // The keyboard continues at a single item that the program has selected.
  if (list_.SelCount() != 1) return;
  selectionModel()->setCurrentIndex(selection.first().topLeft(), QItemSelectionModel::NoUpdate);
  scrollTo(currentIndex());
}

void ListView::ReportSelection() {
  if (is_refreshing_) return;
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      if (row < list_.ListCount()) rows.push_back(row);
    }
  }
  Deliver([&] { list_.UserSelect(rows); });
}

class ListPeer : public ListBoxPeer {
 public:
  ListPeer(WindowPeer& window, ListBox& list, std::unique_ptr<ListView> view)
      : view_(*view), shared_(window, list, std::move(view), [] {}) {}

  void Update(WidgetAspect aspect) override { shared_.Update(aspect); }
  void TakeFocus() override { shared_.TakeFocus(); }
  bool HasFocus() const override { return shared_.HasFocus(); }
  void ItemsAdded(int /*first*/, int /*count*/) override { view_.RefreshSoon(); }
  void ItemsRemoved(int /*first*/, int /*count*/) override { view_.RefreshAfterRemoval(); }
  void ItemChanged(int /*index*/) override { view_.RefreshAfterChange(); }
  void SelectionChanged() override { view_.RefreshSoon(); }

 private:
  ListView& view_;
  ControlPeer shared_;
};

}  // namespace

std::unique_ptr<ListBoxPeer> QtWidgets::Make(WindowPeer& window, ListBox& list) {
  return std::make_unique<ListPeer>(window, list, std::make_unique<ListView>(list));
}

}  // namespace quorvale
