#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtCheckControl.h"
#include "platform/qt/QtComboControl.h"
#include "platform/qt/QtContainers.h"
#include "platform/qt/QtHandleControl.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtListControl.h"
#include "platform/qt/QtPictureControl.h"
#include "platform/qt/QtProgressControl.h"
#include "platform/qt/QtTabsControl.h"
#include "platform/qt/QtTextControl.h"
#include "platform/qt/QtTimer.h"
#include "tests/window/ControlKit.h"
#include "tests/window/QtInput.h"

using namespace Qt::StringLiterals;

namespace {

struct RealControls {
    QWidget window;
    QtListControl list{&window, u"list"_s}, otherList{&window, u"otherList"_s};
    QtComboControl combo{&window, u"combo"_s};
    QtTextControl text{&window, u"text"_s};
    QtLabelControl label{&window, u"label"_s};
    QtButtonControl button{&window, u"button"_s};
    QtCheckControl check{&window, u"check"_s, u"Artist"_s};
    QtTabsControl tabs{&window, u"tabs"_s, {u"All Files"_s, u"Audio"_s, u"Video"_s}};
    QtProgressControl progress{&window, u"progress"_s};
    QtPictureControl picture{&window, u"picture"_s};
    QtHandleControl handle{&window, u"handle"_s};
    QtFrameControl frame{&window, u"frame"_s, u"Frame"_s};
    QtButtonControl buttonInFrame{frame.Widget(), u"buttonInFrame"_s};
    QtTimer timer{1};
};

class QtKit : private RealControls, public ControlKit {
public:
    QtKit()
        : ControlKit({list, otherList, combo, text, label, button, check, tabs, progress, picture,
                      handle, frame, buttonInFrame, timer}) {
        window.resize(800, 600);
        list.Move(150, 150, 3000, 3000);
        otherList.Move(3300, 150, 3000, 3000);
        combo.Move(6450, 150, 3000, 450);
        text.Move(6450, 750, 3000, 450);
        label.Move(6450, 1350, 3000, 450);
        button.Move(6450, 1950, 3000, 450);
        check.Move(6450, 2550, 3000, 450);
        tabs.Move(150, 3300, 6000, 450);
        progress.Move(150, 3900, 3000, 450);
        picture.Move(3300, 3900, 750, 750);
        handle.Move(4200, 3900, 45, 3000);
        frame.Move(6450, 3900, 3000, 1500);
        buttonInFrame.Move(300, 450, 2400, 450);
        QtInput::ShowActive(window);
    }

    WindowHandle FocusedControl() override {
        return ControlWidget::ControlOf(QApplication::focusWidget());
    }

    void ClickRow(ListControl& target, int row) override {
        QtInput::Click(View(target), QtInput::TextOf(View(target), row));
    }
    void ClickCheckBox(ListControl& target, int row) override {
        QtInput::Click(View(target), QtInput::CheckBoxOf(View(target), row));
    }
    void RightClickRow(ListControl& target, int row) override {
        QtInput::Click(View(target), QtInput::TextOf(View(target), row), Qt::RightButton);
    }
    void HoverAt(ListControl& target, int pixelsX, int pixelsY) override {
        // A mouse that is there already would not move.
        QtInput::MoveTo(window, QPoint(0, 0));
        QtInput::MoveTo(View(target), QPoint(pixelsX, pixelsY));
    }
    void PressKey(ListControl& target, Qt::Key key) override {
        target.SetFocus();
        QtInput::Key(window, key);
    }

    void Click(Control& target) override {
        QWidget& widget = *ControlWidget::WidgetOf(target.Handle());
        QtInput::Click(widget, &target == &check ? QPoint(8, 15) : widget.rect().center());
    }
    void ChooseEntry(int index) override {
        QWidget* popup = combo.Widget()->view()->window();
        if (!popup->isVisible()) {
            return;
        }
        QtInput::Key(*popup, Qt::Key_Home);
        for (int i = 0; i < index; ++i) {
            QtInput::Key(*popup, Qt::Key_Down);
        }
        QtInput::Key(*popup, Qt::Key_Return);
    }
    void TypeText(const QString& typed) override { QtInput::Type(window, typed); }
    void ClickTab(int index) override {
        QtInput::Click(*tabs.Widget(), tabs.Widget()->tabRect(index).center());
    }
    void DragHandle(int pixels) override {
        const QPoint start = handle.Widget()->mapTo(&window, QPoint(1, 20));
        const QPoint end = start + QPoint(pixels, 0);
        QtInput::Press(window, start);
        QtInput::MoveTo(window, end);
        QtInput::Release(window, end);
    }
    void LetTimePass() override { QTest::qWait(50); }

private:
    static QListView& View(ListControl& target) {
        return *static_cast<QtListControl&>(target).Widget();
    }
};

} // namespace

std::unique_ptr<ControlKit> MakeQtKit() {
    return std::make_unique<QtKit>();
}
