#pragma once

#include <QListView>
#include <QStyledItemDelegate>

/// Draws the rows of a list: a check box and one line of text.
class QtListDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Where a click on a row ticks it: the check box and what stands between it and the row's
    /// edges, so that nobody has to aim.
    QRect CheckArea(const QListView& view, const QModelIndex& index) const;
    /// Whether the row's text is longer than the row is wide.
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
