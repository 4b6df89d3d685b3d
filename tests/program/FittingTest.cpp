// Captions are whole and apart from each other at any scale, and where people have chosen large
// letters. The scale is the process's: this is also run with QT_SCALE_FACTOR.

#include "app/OverwriteWindow.h"
#include "app/PreviewWindow.h"
#include "tests/app/ProgramFixture.h"
#include "tests/program/RealWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QListView>
#include <QTabBar>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

/// Letters of so many times their usual size, as long as it lives.
class LargerLetters {
public:
    explicit LargerLetters(double factor) : m_before(QApplication::font()) {
        QFont font = m_before;
        font.setPointSizeF(font.pointSizeF() * factor);
        QApplication::setFont(font);
    }
    ~LargerLetters() { QApplication::setFont(m_before); }
    LargerLetters(const LargerLetters&) = delete;
    LargerLetters& operator=(const LargerLetters&) = delete;

private:
    QFont m_before;
};

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

/// The copy button stands over the frame around the destination.
bool MayOverlap(const QWidget& one, const QWidget& other) {
    const QStringList names{one.objectName(), other.objectName()};
    return names.contains(QStringLiteral("cmdCopy")) &&
           names.contains(QStringLiteral("frmDestination"));
}

void ExpectCaptionFits(const QWidget& widget) {
    // The full name is shortened to fit, with a tool tip.
    if (widget.objectName() == QLatin1String("lblFullName")) {
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
    LargerLetters letters{GetParam()};
};

} // namespace

TEST_P(Fitting, TheMainWindowIsTidy) {
    RealWindow window;
    window.Start(SmallLibrary());
    ExpectTidy(window.Top());
    EXPECT_GE(ControlsOf(window.Top()).size(), 18);
}

TEST_P(Fitting, TheMainWindowIsTidyAtItsSmallest) {
    RealWindow window;
    window.Start(SmallLibrary());
    window.Top().resize(1, 1);
    QCoreApplication::processEvents();
    ExpectTidy(window.Top());
}

/// What a screen of 640 by 480 pixels leaves.
TEST_P(Fitting, TheMainWindowIsTidyAndOfUseOnASmallScreen) {
    RealWindow window;
    window.Start(SmallLibrary());
    const QSize small(620, 440);
    window.Top().resize(small);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.Top().size(), small);
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

TEST_P(Fitting, TheMainWindowIsTidyWhileItCopies) {
    RealWindow window;
    window.Start(SmallLibrary());
    window.controls.cmdCopy.SetCaption(QStringLiteral("&Cancel"));
    window.controls.lblMessage.SetCaption(QStringLiteral("Copying files... 32767 of 32767"));
    ExpectTidy(window.Top());
}

TEST_P(Fitting, TheOverwritePromptIsTidy) {
    OverwritePrompt prompt;
    bool seen = false;
    for (const char* path : {"/m", "/home/ana/Music/The Borrowed Umbrellas/Morning Rounds/01 First "
                                   "Light.mp3"}) {
        prompt.OverwriteFile = QString::fromLatin1(path);
        OverwriteWindow window(nullptr, prompt);
        QTimer::singleShot(0, [&seen] {
            const QWidget* shown = QApplication::activeModalWidget();
            ASSERT_NE(shown, nullptr);
            seen = ControlsOf(*shown).size() == 5;
            ExpectTidy(*shown);
            QApplication::activeModalWidget()->close();
        });
        window.Ask();
        EXPECT_TRUE(seen);
    }
}

TEST_P(Fitting, ThePreviewIsTidy) {
    FakeFileSystem files;
    PreviewWindow preview(nullptr, files);
    for (const int width : {480, 240, 120}) {
        preview.Controls().frmPreview.SetSize(width * 15, 320 * 15);
        preview.Controls().frmPreview.Show();
        QCoreApplication::processEvents();
        ExpectTidy(*preview.Widget());
        const auto* play = preview.Widget()->findChild<QWidget*>(QStringLiteral("PlayButton"));
        ASSERT_NE(play, nullptr);
        ASSERT_TRUE(ControlsOf(*play->parentWidget()).contains(play));
        ExpectTidy(*play->parentWidget());
    }
}

INSTANTIATE_TEST_SUITE_P(Letters, Fitting, testing::Values(1.0, 1.5), [](const auto& factor) {
    return std::string(factor.param > 1 ? "Large" : "Usual");
});
