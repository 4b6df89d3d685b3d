#include "platform/qt/QtListAccessible.h"

#include <QWindow>

namespace {

/// One row. It becomes invalid once the list is filled again.
class RowAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    RowAccessible(QtListView* view, int row)
        : m_view(view), m_fillings(view->Fillings()), m_row(row) {}

    int Row() const { return m_row; }

    bool isValid() const override {
        return m_view != nullptr && m_view->Fillings() == m_fillings &&
               m_row < m_view->model()->rowCount();
    }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_view->window()->windowHandle(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_view);
    }
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QAccessible::Role role() const override { return QAccessible::CheckBox; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? Index().data().toString() : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        const QRect area = m_view->visualRect(Index());
        return {m_view->viewport()->mapToGlobal(area.topLeft()), area.size()};
    }
    QAccessible::State state() const override;

    QStringList actionNames() const override { return {toggleAction(), setFocusAction()}; }
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

private:
    QPointer<QtListView> m_view;
    int m_fillings;
    int m_row;

    QModelIndex Index() const { return m_view->model()->index(m_row, 0); }
};

QAccessible::State RowAccessible::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const bool isCurrent = m_row == m_view->CurrentRow();
    state.disabled = !m_view->isEnabled();
    state.checkable = true;
    state.checked = Index().data(Qt::CheckStateRole).toInt() == Qt::Checked;
    state.focusable = true;
    state.focused = isCurrent && m_view->hasFocus();
    state.selectable = true;
    state.selected = isCurrent;
    state.invisible = !m_view->isVisible();
    state.offscreen = !m_view->viewport()->rect().intersects(m_view->visualRect(Index()));
    return state;
}

void RowAccessible::doAction(const QString& action) {
    if (!isValid() || !m_view->IsUsable()) {
        return;
    }
    if (action == toggleAction()) {
        m_view->RowToggled(m_row);
    } else if (action == setFocusAction()) {
        m_view->setFocus(Qt::OtherFocusReason);
        m_view->RowPressed(m_row, false);
    }
}

QAccessibleInterface* Make(const QString&, QObject* object) {
    auto* view = dynamic_cast<QtListView*>(object);
    return view != nullptr ? new QtListAccessible(view) : nullptr;
}

} // namespace

QtListAccessible::QtListAccessible(QtListView* view)
    : QAccessibleWidget(view, QAccessible::List), m_view(view), m_fillings(view->Fillings()) {
}

QtListAccessible::~QtListAccessible() {
    ForgetRows();
}

void QtListAccessible::Install() {
    static bool installed = false;
    if (!installed) {
        QAccessible::installFactory(Make);
        installed = true;
    }
}

void QtListAccessible::ForgetRows() const {
    for (const auto& [row, id] : m_rows) {
        QAccessible::deleteAccessibleInterface(id);
    }
    m_rows.clear();
}

int QtListAccessible::childCount() const {
    return View()->model() != nullptr ? View()->model()->rowCount() : 0;
}

QAccessibleInterface* QtListAccessible::child(int row) const {
    if (row < 0 || row >= childCount()) {
        return nullptr;
    }
    if (m_fillings != View()->Fillings()) {
        ForgetRows();
        m_fillings = View()->Fillings();
    }
    const auto known = m_rows.find(row);
    if (known != m_rows.end()) {
        return QAccessible::accessibleInterface(known->second);
    }
    auto* made = new RowAccessible(View(), row);
    m_rows[row] = QAccessible::registerAccessibleInterface(made);
    return made;
}

QAccessibleInterface* QtListAccessible::childAt(int x, int y) const {
    return child(View()->indexAt(View()->viewport()->mapFromGlobal(QPoint(x, y))).row());
}

int QtListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const RowAccessible*>(child);
    return row != nullptr ? row->Row() : -1;
}

QAccessibleInterface* QtListAccessible::focusChild() const {
    return View()->hasFocus() ? child(View()->CurrentRow()) : nullptr;
}
