#include "platform/qt/QtComboControl.h"

#include "platform/RuntimeError.h"

#include <QWheelEvent>

namespace {

class DropDownList : public QComboBox {
public:
    using QComboBox::QComboBox;

    Event Opening;

    void showPopup() override {
        Raise(Opening);
        QComboBox::showPopup();
    }

protected:
    void wheelEvent(QWheelEvent* event) override {
        // A turn of the wheel on its way elsewhere must not choose another entry.
        event->ignore();
    }
};

} // namespace

QtComboControl::QtComboControl(QWidget* parent, const QString& name)
    : QtControl(new DropDownList(parent), name) {
    static_cast<DropDownList*>(Widget())->Opening = [this] { Raise(DropDown); };
    QObject::connect(Widget(), &QComboBox::activated, Widget(), [this] { Raise(Click); });
}

QString QtComboControl::List(int index) const {
    if (index < 0 || index >= ListCount()) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return Widget()->itemText(index);
}

void QtComboControl::AddItem(const QString& text) {
    const int chosen = Widget()->currentIndex();
    Widget()->addItem(text);
    // The widget chooses the first entry of an empty list by itself.
    Widget()->setCurrentIndex(chosen);
}

void QtComboControl::SetText(const QString& text) {
    const int index = Widget()->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    Widget()->setCurrentIndex(index);
    if (index != -1) {
        Raise(Click);
    }
}
