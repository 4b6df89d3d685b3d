#pragma once

#include "platform/qt/QtControl.h"

#include <QStringList>
#include <QTabBar>

/// A strip of tabs without pages.
class QtTabsControl : public QtControl<TabsControl, QTabBar> {
public:
    /// The first tab is selected.
    QtTabsControl(QWidget* parent, const QString& name, const QStringList& captions);

    QString SelectedCaption() const override { return m_captions.value(Widget()->currentIndex()); }
    void Select(int index) override;

private:
    QStringList m_captions;
    bool m_selecting = false;
};
