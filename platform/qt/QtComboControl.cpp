#include "platform/qt/QtComboControl.h"

#include "platform/RuntimeError.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

class QtComboControl::DropDownList : public QComboBox {
public:
    using QComboBox::QComboBox;

    Event Opening;

    void showPopup() override {
        Raise(Opening);
        QComboBox::showPopup();
    }

protected:
    /// The styles would cut off a text that does not fit, in the middle of a letter.
    void paintEvent(QPaintEvent*) override {
        QStyleOptionComboBox option;
        initStyleOption(&option);
        QStylePainter painter(this);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        if (currentIndex() == -1) {
            option.palette.setBrush(QPalette::ButtonText, option.palette.placeholderText());
            option.currentText = placeholderText();
        }
        const QRect area = style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                   QStyle::SC_ComboBoxEditField, this);
        option.currentText =
            fontMetrics().elidedText(option.currentText, Qt::ElideRight, area.width() - 2);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }

    void wheelEvent(QWheelEvent* event) override {
        // Turning the wheel while the pointer passes over the box must not choose another entry.
        event->ignore();
    }
};

QtComboControl::QtComboControl(QWidget* parent, const QString& name)
    : QtComboControl(new DropDownList(parent), name) {
}

QtComboControl::QtComboControl(DropDownList* list, const QString& name) : QtControl(list, name) {
    list->Opening = [this] { QtFrames::Raise(DropDown); };
    QObject::connect(Widget(), &QComboBox::activated, Widget(), [this] { QtFrames::Raise(Click); });
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
    // On its own, the widget would choose the first entry that is added to an empty list.
    Widget()->setCurrentIndex(chosen);
}

void QtComboControl::SetText(const QString& text) {
    const int index = Widget()->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    Widget()->setCurrentIndex(index);
    if (index != -1) {
        Raise(Click);
    }
}
