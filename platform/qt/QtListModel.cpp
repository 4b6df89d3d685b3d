#include "platform/qt/QtListModel.h"

#include <algorithm>

void QtListModel::Fill(std::vector<ListRow> rows) {
    beginResetModel();
    m_rows = std::move(rows);
    m_tickedCount = int(
        std::count_if(m_rows.begin(), m_rows.end(), [](const ListRow& row) { return row.Ticked; }));
    endResetModel();
}

void QtListModel::SetTicked(int row, bool ticked) {
    ListRow& changed = m_rows[size_t(row)];
    if (changed.Ticked != ticked) {
        changed.Ticked = ticked;
        m_tickedCount += ticked ? 1 : -1;
    }
}

void QtListModel::TickChanged(int row) {
    Q_EMIT dataChanged(index(row), index(row), {Qt::CheckStateRole});
}

int QtListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Count();
}

QVariant QtListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= Count()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return Row(index.row()).Text;
    }
    if (role == Qt::CheckStateRole) {
        return Row(index.row()).Ticked ? Qt::Checked : Qt::Unchecked;
    }
    return {};
}

Qt::ItemFlags QtListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
           Qt::ItemNeverHasChildren;
}
