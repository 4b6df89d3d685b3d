#include "platform/qt/QtTabsControl.h"

#include "platform/RuntimeError.h"

#include <QScopedValueRollback>
#include <QWheelEvent>

namespace {

/// A turn of the wheel over the tabs is probably for a list below, and should not start a search.
class Tabs : public QTabBar {
public:
    using QTabBar::QTabBar;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

} // namespace

QtTabsControl::QtTabsControl(QWidget* parent, const QString& name, const QStringList& captions)
    : QtControl(new Tabs(parent), name), m_captions(captions) {
    for (const QString& caption : captions) {
        Widget()->addTab(caption);
    }
    Widget()->setExpanding(false);
    Widget()->setFocusPolicy(Qt::StrongFocus);
    const QSize size = Widget()->sizeHint();
    Move(0, 0, size.width() * Twips::PerPixelX(), size.height() * Twips::PerPixelY());

    QObject::connect(Widget(), &QTabBar::currentChanged, Widget(), [this] {
        if (!m_selecting) {
            QtFrames::Raise(Click);
        }
    });
    QObject::connect(Widget(), &QTabBar::tabBarClicked, Widget(), [this](int index) {
        if (index != -1 && index == Widget()->currentIndex()) {
            QtFrames::Raise(Click);
        }
    });
}

void QtTabsControl::Select(int index) {
    if (index < 0 || index >= Widget()->count()) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    {
        const QScopedValueRollback guard(m_selecting, true);
        Widget()->setCurrentIndex(index);
    }
    Raise(Click);
}
