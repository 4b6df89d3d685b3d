#include "platform/qt/ControlWidget.h"

#include "platform/qt/ShownText.h"
#include "platform/qt/Twips.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTabBar>
#include <QToolTip>
#include <QVariant>

namespace ControlWidget {

namespace {

/// The property that marks a control's widget and says whether the control may count as focused.
constexpr const char* MayHaveFocus = "songliftMayHaveFocus";

/// Shows the tool tips of the widgets that it watches.
class ToolTipShower : public QObject {
protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::ToolTip) {
            return false;
        }
        auto* widget = qobject_cast<QWidget*>(watched);
        if (widget == nullptr || qobject_cast<QTabBar*>(widget) != nullptr) {
            return false; // each tab has its own tool tip
        }
        const QPoint position = static_cast<QHelpEvent*>(event)->globalPos();
        QToolTip::showText(position, ShownText::ToolTip(widget->toolTip()), widget);
        return true;
    }
};

} // namespace

void Adopt(QWidget& widget, const QString& name) {
    static ToolTipShower toolTips;
    widget.setObjectName(name);
    widget.installEventFilter(&toolTips);
    SetMayHaveFocus(widget, true);
}

WindowHandle HandleOf(const QWidget& widget) {
    return reinterpret_cast<WindowHandle>(&widget);
}

WindowHandle ControlOf(const QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        const QVariant mayHaveFocus = widget->property(MayHaveFocus);
        if (mayHaveFocus.isValid()) {
            return mayHaveFocus.toBool() ? HandleOf(*widget) : 0;
        }
    }
    return 0;
}

void SetMayHaveFocus(QWidget& widget, bool mayHaveFocus) {
    widget.setProperty(MayHaveFocus, mayHaveFocus);
}

bool IsReached(const QWidget& widget) {
    const QWidget* modal = QApplication::activeModalWidget();
    return widget.isEnabled() && (modal == nullptr || modal == widget.window());
}

void Place(QWidget& widget, double left, double top, double width, double height) {
    widget.setGeometry(Twips::ToPixels(left, top, width, height));
}

void PaintNow(QWidget& widget) {
    QCoreApplication::sendPostedEvents(widget.window(), QEvent::UpdateRequest);
}

QWidget* WidgetOf(WindowHandle handle) {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (HandleOf(*widget) == handle) {
            return widget;
        }
    }
    return nullptr;
}

QWidget* SeenOwner(QWidget* owner) {
    return owner != nullptr && owner->isVisible() && !owner->isMinimized() ? owner : nullptr;
}

} // namespace ControlWidget
