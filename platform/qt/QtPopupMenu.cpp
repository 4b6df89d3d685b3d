#include "platform/qt/QtPopupMenu.h"

#include "platform/qt/ControlWidget.h"
#include "platform/qt/QtFrames.h"
#include "platform/qt/Twips.h"

QtPopupMenu::QtPopupMenu(QWidget* parent, const QString& name, const QString& entryName,
                         const QString& entryCaption)
    : m_menu(new QMenu(parent)) {
    m_menu->setObjectName(name);
    QAction* action = m_menu->addAction(entryCaption);
    action->setObjectName(entryName);
    QObject::connect(action, &QAction::triggered, m_menu, [this] { QtFrames::Raise(Entry.Click); });
}

QtPopupMenu::~QtPopupMenu() {
    delete m_menu.data();
}

void QtPopupMenu::SetEntryToolTip(const QString& text) {
    m_menu->actions().constFirst()->setToolTip(text);
    m_menu->setToolTipsVisible(true);
}

void QtPopupMenu::PopUp(const Control& control, double x, double y) {
    const QWidget* widget = ControlWidget::WidgetOf(control.Handle());
    m_menu->popup(widget->mapToGlobal(Twips::ToPixels(x, y, 0, 0).topLeft()));
    m_menu->setActiveAction(m_menu->actions().constFirst());
}
