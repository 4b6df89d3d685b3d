// The real window's layout: captions are whole and controls apart from each other at any size and
// scale, and where people have chosen large letters; the splitters follow the mouse. The scale is
// the process's: this is also run with QT_SCALE_FACTOR.

#include "app/OverwriteWindow.h"
#include "app/PreviewWindow.h"
#include "tests/program/RealWindow.h"

#include <QAbstractButton>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QScreen>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

std::string NameOf(const QWidget& widget) {
    return widget.objectName().toStdString();
}

QList<QWidget*> ControlsOf(const QWidget& parent) {
    QList<QWidget*> controls;
    for (QWidget* child : parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && !child->objectName().isEmpty() && !child->isWindow()) {
            controls.append(child);
        }
    }
    return controls;
}

/// The copy button lies over the frame around the destination.
bool MayOverlap(const QWidget& one, const QWidget& other) {
    const QStringList names{one.objectName(), other.objectName()};
    return names.contains(u"cmdCopy"_s) && names.contains(u"frmDestination"_s);
}

void ExpectCaptionFits(const QWidget& widget) {
    // The full name is shortened to fit, with a tool tip.
    if (widget.objectName() == u"lblFullName"_s) {
        return;
    }
    QSize needed(0, 0);
    if (qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
        qobject_cast<const QLabel*>(&widget) != nullptr ||
        qobject_cast<const QTabBar*>(&widget) != nullptr) {
        needed = widget.sizeHint();
    } else if (const auto* frame = qobject_cast<const QGroupBox*>(&widget)) {
        needed = frame->fontMetrics().size(Qt::TextShowMnemonic, frame->title());
    } else if (widget.inherits("QLineEdit") || widget.inherits("QComboBox")) {
        needed.setHeight(widget.fontMetrics().height() + 4);
    }
    EXPECT_GE(widget.width(), needed.width()) << NameOf(widget) << " is cut off";
    EXPECT_GE(widget.height(), needed.height()) << NameOf(widget) << " is cut off";
}

/// All that is in a window, and in what it holds.
void ExpectTidy(const QWidget& parent) {
    const QList<QWidget*> controls = ControlsOf(parent);
    for (qsizetype i = 0; i < controls.size(); ++i) {
        const QWidget& control = *controls[i];
        ExpectCaptionFits(control);
        EXPECT_TRUE(parent.rect().contains(control.geometry()))
            << NameOf(control) << " sticks out of " << NameOf(parent);
        for (qsizetype j = i + 1; j < controls.size(); ++j) {
            EXPECT_FALSE(control.geometry().intersects(controls[j]->geometry()) &&
                         !MayOverlap(control, *controls[j]))
                << NameOf(control) << " overlaps " << NameOf(*controls[j]);
        }
        if (!control.inherits("QAbstractItemView") && !control.inherits("QComboBox")) {
            ExpectTidy(control);
        }
    }
}

/// With letters of their usual size, and half as large again.
class Fitting : public testing::TestWithParam<double> {
protected:
    Fitting() {
        QFont font = m_before;
        font.setPointSizeF(font.pointSizeF() * GetParam());
        QApplication::setFont(font);
    }
    ~Fitting() override { QApplication::setFont(m_before); }

private:
    QFont m_before = QApplication::font();
};

INSTANTIATE_TEST_SUITE_P(Letters, Fitting, testing::Values(1.0, 1.5), [](const auto& factor) {
    return std::string(factor.param > 1 ? "Large" : "Usual");
});

TEST_P(Fitting, TheMainWindowIsTidyAtEverySizeAndWhileItCopies) {
    RealWindow window;
    window.Start();
    EXPECT_GE(ControlsOf(window.Top()).size(), 18);
    ExpectTidy(window.Top());
    for (const QSize size : {QSize(1, 1), QSize(2400, 1500), QSize(980, 660)}) {
        window.Resize(size.width(), size.height());
        ExpectTidy(window.Top());
        EXPECT_GT(window.controls.lstArtists.Height(), 0);
        EXPECT_EQ(window.Widget("prgCopy").geometry().right(),
                  window.Widget("lstSongs").geometry().right());
    }
    window.controls.cmdCopy.SetCaption(u"&Cancel"_s);
    window.controls.lblMessage.SetCaption(u"Copying files... 32767 of 32767"_s);
    ExpectTidy(window.Top());
}

/// What a screen of 640 by 480 pixels leaves.
TEST_P(Fitting, TheMainWindowIsTidyAndUsableOnASmallScreen) {
    RealWindow window;
    window.Start();
    window.Resize(620, 440);
    EXPECT_EQ(window.Top().size(), QSize(620, 440));
    ExpectTidy(window.Top());
    for (const char* name : {"lstArtists", "lstAlbums", "lstSongs"}) {
        const auto& list = window.Widget<QListView>(name);
        EXPECT_GE(list.viewport()->height(), 4 * list.sizeHintForRow(0)) << name;
    }
    for (const char* name : {"Combo1", "txtSearch", "txtDestination"}) {
        const QWidget& box = window.Widget(name);
        EXPECT_GE(box.width(), box.fontMetrics().averageCharWidth() * 10) << name;
    }
}

TEST_P(Fitting, TheOverwritePromptIsTidy) {
    OverwritePrompt prompt;
    for (const QString& path :
         {u"/m"_s, u"/home/ana/Music/The Borrowed Umbrellas/Morning Rounds/01 First Light.mp3"_s}) {
        prompt.AskAbout(path);
        OverwriteWindow window(nullptr, prompt);
        bool seen = false;
        QTimer::singleShot(0, [&seen] {
            QWidget* shown = QApplication::activeModalWidget();
            ASSERT_NE(shown, nullptr);
            seen = ControlsOf(*shown).size() == 5;
            ExpectTidy(*shown);
            shown->close();
        });
        window.Ask();
        EXPECT_TRUE(seen);
    }
}

TEST_P(Fitting, ThePreviewIsTidy) {
    RecordedFiles files;
    PreviewWindow preview(nullptr, files);
    for (const int width : {480, 240, 120}) {
        preview.Controls().frmPreview.SetSize(width * 15, 320 * 15);
        preview.Controls().frmPreview.Show();
        QCoreApplication::processEvents();
        ExpectTidy(*preview.Widget());
        const auto* play = preview.Widget()->findChild<QWidget*>(u"PlayButton"_s);
        ASSERT_NE(play, nullptr);
        ASSERT_TRUE(ControlsOf(*play->parentWidget()).contains(play));
        ExpectTidy(*play->parentWidget());
    }
}

class WindowLayout : public testing::Test, protected RealWindow {};

TEST_F(WindowLayout, KeepsTheListsRatioThroughManySizes) {
    Start();
    const double share = controls.lstArtists.Width() / controls.lstSongs.Width();
    for (int width = 900; width < 1600; width += 7) {
        Top().resize(width, 700);
    }
    Resize(980, 660);
    EXPECT_NEAR(controls.lstArtists.Width() / controls.lstSongs.Width(), share, 0.001);
}

TEST_F(WindowLayout, ASplitterFollowsTheMouseUpToTheSmallestListAndIsDarkOnlyWhileItIsHeld) {
    Start();
    const double before = controls.lstArtists.Width();
    Drag("Handle0", 60);
    EXPECT_NEAR(controls.lstArtists.Width(), before + 60 * 15, 4 * 15);
    EXPECT_EQ(controls.Handle0.BackColor(), SystemColor::ButtonFace);
    EXPECT_DOUBLE_EQ(controls.lstAlbums.Left(),
                     controls.lstArtists.Left() + controls.lstArtists.Width() + 45);
    ExpectTidy(Top());
    Drag("Handle1", 5000);
    EXPECT_DOUBLE_EQ(controls.lstSongs.Width(), 315);
    Drag("Handle0", -5000);
    EXPECT_DOUBLE_EQ(controls.lstArtists.Width(), 315);
    ExpectTidy(Top());
}

TEST_F(WindowLayout, ASplitterIsReleasedWhenAMessageTakesTheMouse) {
    Start();
    QWidget& handle = Widget("Handle0");
    QtInput::Press(handle, handle.rect().center());
    ASSERT_EQ(controls.Handle0.BackColor(), SystemColor::DarkShadow3D);
    {
        QDialog message(&Top());
        message.setWindowModality(Qt::ApplicationModal);
        message.show();
        QCoreApplication::processEvents();
        QtInput::Release(handle, handle.rect().center());
    }
    const double width = controls.lstArtists.Width();
    QtInput::MoveTo(handle, QPoint(0, 30));
    QtInput::MoveTo(handle, QPoint(2, 40));
    EXPECT_EQ(controls.Handle0.BackColor(), SystemColor::ButtonFace);
    EXPECT_EQ(controls.lstArtists.Width(), width);
}

TEST_F(WindowLayout, TheSizeAndTheSplittersAreRestored) {
    Start();
    // With a title bar no larger than the screen, to whose size it would be cut.
    const QSize size =
        Top().minimumSize().expandedTo(Top().screen()->availableSize() - QSize(10, 30));
    Top().resize(size);
    Drag("Handle0", 40);
    QCoreApplication::processEvents();
    Top().close();

    RealWindow again;
    again.store.Values = store.Values;
    again.Start();
    EXPECT_EQ(again.Top().size(), size);
    EXPECT_NEAR(again.controls.lstArtists.Width(), controls.lstArtists.Width(), 8);
    EXPECT_NEAR(again.controls.lstAlbums.Width(), controls.lstAlbums.Width(), 8);
}

} // namespace
