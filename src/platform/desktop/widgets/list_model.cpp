#include "platform/desktop/widgets/list_model.h"

namespace quorvale {
namespace {

// The text that a reader would see of an item: what lies behind a long run of blanks is out of sight.
QString SeenText(const std::string& item) {
  constexpr char kLongRun[] = "                ";
  const std::size_t end = item.find_last_not_of(' ', item.find(kLongRun));
  return QString::fromStdString(item.substr(0, end + 1));
}

}  // namespace

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

}  // namespace quorvale
