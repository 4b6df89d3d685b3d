#pragma once

#include <QListView>
#include <QStyledItemDelegate>

/// Draws the rows of a list: a check box and one line of text.
class QtListDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Where a click ticks the row: the check box and the space between it and the row's edges, so
    /// that the user need not aim.
    QRect CheckArea(const QListView& view, const QModelIndex& index) const;
    /// Whether the row's text is too long for the row.
    bool IsElided(const QListView& view, const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QString displayText(const QVariant& value, const QLocale& locale) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    QStyleOptionViewItem Option(const QListView& view, const QModelIndex& index) const;
};
