#pragma once

#include "platform/qt/QtListView.h"

#include <QAccessibleWidget>
#include <QPointer>

#include <unordered_map>

/// A list as screen readers see it. Its rows are check boxes, whose state is spoken, while the
/// desktop's bridge does not report that a list item can be checked.
class QtListAccessible : public QAccessibleWidget {
public:
    explicit QtListAccessible(QtListView* view);
    ~QtListAccessible() override;
    QtListAccessible(const QtListAccessible&) = delete;
    QtListAccessible& operator=(const QtListAccessible&) = delete;

    /// Makes screen readers see every QtListView in this way.
    static void Install();

    int childCount() const override;
    QAccessibleInterface* child(int row) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;

private:
    QPointer<QtListView> m_view;
    /// The rows that were asked for, until the list is filled again.
    mutable std::unordered_map<int, QAccessible::Id> m_rows;
    mutable int m_fillings = 0;

    QtListView* View() const { return m_view; }
    void ForgetRows() const;
};
