// The folders offered to a user who types a path, and above all what they leave alone.

#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtTextControl.h"
#include "tests/window/QtInput.h"

#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// A window with a box for a path at its lower edge, in front of a folder that holds "Music",
/// "music videos", "Pictures" and ".hidden", each with nothing in it, and the file "mute.txt".
class Offers : public testing::Test {
protected:
    QTemporaryDir folder;
    QWidget window;
    QtButtonControl button{&window, QStringLiteral("button"), QStringLiteral("Elsewhere")};
    QtTextControl box{&window, QStringLiteral("box")};
    int clicks = 0;
    QStringList changes;

    Offers() {
        for (const char* name : {"Music", "music videos", "Pictures", ".hidden"}) {
            QDir(folder.path()).mkdir(QString::fromLatin1(name));
        }
        QFile file(folder.filePath(QStringLiteral("mute.txt")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        window.resize(400, 300);
        button.Move(150, 150, 3000, 450);
        box.Move(150, 3750, 4500, 450);
        box.CompletePaths();
        button.Click = [this] { ++clicks; };
        box.Change = [this] { changes.append(box.Text()); };
        window.show();
        QApplication::setActiveWindow(&window);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        box.SetFocus();
    }

    QString In(const char* name) { return folder.path() + QString::fromLatin1(name); }
    void TypeIn(const char* name) { QtInput::Type(window, In(name)); }
    void Key(Qt::Key key) { QtInput::Key(window, key); }
    bool HasFocus() { return box.Widget()->hasFocus(); }

    QListWidget* List() { return window.findChild<QListWidget*>(QStringLiteral("FolderList")); }
    bool IsOpen() { return List() != nullptr && List()->isVisible(); }
    QStringList Offered() {
        QStringList names;
        for (int row = 0; IsOpen() && row < List()->count(); ++row) {
            names.append(List()->item(row)->text());
        }
        return names;
    }
};

QStringList Names(std::initializer_list<const char*> names) {
    QStringList texts;
    for (const char* name : names) {
        texts.append(QString::fromLatin1(name));
    }
    return texts;
}

} // namespace

TEST_F(Offers, AreTheFoldersThatThePathMayGoOnWith) {
    TypeIn("/");
    EXPECT_EQ(Offered(), Names({"Music", "music videos", "Pictures"}));
    QtInput::Type(window, QStringLiteral("mu"));
    EXPECT_EQ(Offered(), Names({"Music", "music videos"}));
    QtInput::Type(window, QStringLiteral("x"));
    EXPECT_EQ(Offered(), QStringList());
    EXPECT_EQ(box.Text(), In("/mux"));
}

TEST_F(Offers, AreHiddenFoldersOnlyWhenAskedFor) {
    TypeIn("/.");
    EXPECT_EQ(Offered(), Names({".hidden"}));
}

TEST_F(Offers, AreNothingForAPathThatIsCompleteOrNone) {
    TypeIn("/Pictures");
    EXPECT_FALSE(IsOpen());
    box.SetText(QString());
    for (const char* text : {"Mus", "E:\\", ":/", "/no such folder/"}) {
        QtInput::Type(window, QString::fromLatin1(text));
        EXPECT_FALSE(IsOpen()) << text;
        box.SetText(QString());
    }
}

TEST_F(Offers, DoNotAppearWhenTheProgramSetsTheText) {
    box.SetText(In("/Mu"));
    EXPECT_FALSE(IsOpen());
}

TEST_F(Offers, LeaveTheTextAloneWhileTheUserTypes) {
    TypeIn("/Mu");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(box.Text(), In("/Mu"));
    EXPECT_EQ(changes.size(), In("/Mu").size());
    EXPECT_TRUE(HasFocus());
}

TEST_F(Offers, AClickElsewhereArrivesThereAtOnce) {
    TypeIn("/Mu");
    QtInput::Click(*button.Widget(), QPoint(20, 10));
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(box.Text(), In("/Mu"));
}

TEST_F(Offers, AClickThatTakesNoFocusClosesThemToo) {
    TypeIn("/Mu");
    QtInput::Click(window, QPoint(390, 5));
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(HasFocus());
}

TEST_F(Offers, TabGoesOnWithTheFirstPress) {
    TypeIn("/Mu");
    Key(Qt::Key_Tab);
    EXPECT_FALSE(HasFocus());
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(box.Text(), In("/Mu"));
    Key(Qt::Key_Space);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Offers, TheArrowsPutAFolderIntoTheBoxAndEscapeTakesItBack) {
    TypeIn("/mu");
    Key(Qt::Key_Down);
    EXPECT_EQ(box.Text(), In("/Music"));
    Key(Qt::Key_Down);
    EXPECT_EQ(box.Text(), In("/music videos"));
    Key(Qt::Key_Down);
    EXPECT_EQ(box.Text(), In("/mu"));
    Key(Qt::Key_Up);
    EXPECT_EQ(box.Text(), In("/music videos"));
    EXPECT_EQ(changes.constLast(), In("/music videos"));
    Key(Qt::Key_Escape);
    EXPECT_EQ(box.Text(), In("/mu"));
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(HasFocus());
}

TEST_F(Offers, EnterTakesTheChosenFolderAndTypingGoesOnFromThere) {
    TypeIn("/mu");
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_EQ(box.Text(), In("/Music"));
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(HasFocus());
    QtInput::Type(window, QStringLiteral("/x"));
    EXPECT_EQ(box.Text(), In("/Music/x"));
}

TEST_F(Offers, EnterIsTheWindowsWhileNoneIsChosen) {
    TypeIn("/mu");
    int entered = 0;
    QObject::connect(box.Widget(), &QLineEdit::returnPressed, [&entered] { ++entered; });
    Key(Qt::Key_Return);
    EXPECT_EQ(entered, 1);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(box.Text(), In("/mu"));
}

TEST_F(Offers, AClickOnOneTakesIt) {
    TypeIn("/mu");
    QListWidget& list = *List();
    const QRect row = list.visualItemRect(list.item(1));
    QtInput::Click(*list.viewport(), row.center());
    EXPECT_EQ(box.Text(), In("/music videos"));
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(HasFocus());
}

TEST_F(Offers, StandInTheWindowBesideTheBox) {
    TypeIn("/");
    EXPECT_TRUE(window.rect().contains(List()->geometry()));
    EXPECT_FALSE(List()->geometry().intersects(box.Widget()->geometry()));
    EXPECT_EQ(List()->geometry().bottom() + 1, box.Widget()->geometry().top());
    window.resize(500, 400);
    EXPECT_FALSE(IsOpen());
}

TEST_F(Offers, GoWhenTheBoxIsDisabled) {
    TypeIn("/");
    box.SetEnabled(false);
    EXPECT_FALSE(IsOpen());
}
