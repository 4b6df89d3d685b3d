#pragma once

#include "platform/Controls.h"

#include <QAbstractListModel>

#include <vector>

/// The rows of a list, as the program passed them.
class QtListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    int Count() const { return int(m_rows.size()); }
    const ListRow& Row(int row) const { return m_rows[size_t(row)]; }
    /// Number of ticked rows.
    int TickedCount() const { return m_tickedCount; }

    void Fill(std::vector<ListRow> rows);
    /// Sets the check of a row without notifying any view.
    void SetTicked(int row, bool ticked);
    /// Notifies the views that the check of a row has changed.
    void TickChanged(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::vector<ListRow> m_rows;
    int m_tickedCount = 0;
};
