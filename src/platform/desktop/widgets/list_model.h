#pragma once

#include <QAbstractListModel>

#include "toolkit/list_box.h"

namespace quorvale {

// The items of a list box for Qt. They stay in the control; the model only knows how many of them the view has
// been told of.
class ListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  explicit ListModel(const ListBox& list) : list_(list), rows_(list.ListCount()) {}

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
  QVariant data(const QModelIndex& index, int role) const override;

  // Items have been added at the end, and nothing else.
  void Grow();
  void ItemsChanged();
  // Anything may have changed.
  void Reset();

 private:
  const ListBox& list_;
  int rows_;
};

}  // namespace quorvale
