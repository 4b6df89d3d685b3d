// The folders offered to a user who types a path, and above all what they leave alone.

#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtTextControl.h"
#include "tests/fakes/Text.h"
#include "tests/window/QtInput.h"

#include <QDir>
#include <QListWidget>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

/// A window with a box for a path at its lower edge, in front of a folder that holds "Music",
/// "music videos", "Pictures" and ".hidden", each with nothing in it, and the file "mute.txt".
class Offers : public testing::Test {
protected:
    QTemporaryDir folder;
    QWidget window;
    QtButtonControl button{&window, u"button"_s, u"Elsewhere"_s};
    QtTextControl box{&window, u"box"_s};
    int clicks = 0;
    int changes = 0;

    Offers() {
        for (const QString& name : {u"Music"_s, u"music videos"_s, u"Pictures"_s, u".hidden"_s}) {
            QDir(folder.path()).mkdir(name);
        }
        QFile file(folder.filePath(u"mute.txt"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        window.resize(400, 300);
        button.Move(150, 150, 3000, 450);
        box.Move(150, 3750, 4500, 450);
        box.CompletePaths();
        button.Click = [this] { ++clicks; };
        box.Change = [this] { ++changes; };
        QtInput::ShowActive(window);
        box.SetFocus();
    }

    void Type(const QString& text) { QtInput::Type(window, text); }
    QString PathTo(const QString& name) { return QDir::toNativeSeparators(folder.path() + name); }
    void TypePath(const QString& name) { Type(PathTo(name)); }
    void Key(Qt::Key key) { QtInput::Key(window, key); }
    bool HasFocus() { return box.Widget()->hasFocus(); }

    QListWidget* List() { return window.findChild<QListWidget*>(u"FolderList"_s); }
    bool IsOpen() { return List() != nullptr && List()->isVisible(); }
    QStringList Offered() {
        QStringList names;
        for (int row = 0; IsOpen() && row < List()->count(); ++row) {
            names.append(List()->item(row)->text());
        }
        return names;
    }

    void ExpectBox(const QString& name) { EXPECT_EQ(box.Text(), PathTo(name)); }
    /// The list is gone, and the user can go on typing.
    void ExpectClosed(const QString& name) {
        ExpectBox(name);
        EXPECT_FALSE(IsOpen());
        EXPECT_TRUE(HasFocus());
    }
};

} // namespace

TEST_F(Offers, AreTheFoldersThatMayComeNextAndHiddenOnesOnlyAfterTheirDot) {
    TypePath(u"/"_s);
    EXPECT_EQ(Offered(), QStringList({u"Music"_s, u"music videos"_s, u"Pictures"_s}));
    Type(u"mu"_s);
    EXPECT_EQ(Offered(), QStringList({u"Music"_s, u"music videos"_s}));
    Type(u"x"_s);
    ExpectClosed(u"/mux"_s);
    box.SetText(QString());
    TypePath(u"/."_s);
    EXPECT_EQ(Offered(), QStringList({u".hidden"_s}));
}

TEST_F(Offers, AreNotMadeForAPathThatIsCompleteOrInvalidOrSetByTheProgram) {
    TypePath(u"/Pictures"_s);
    EXPECT_FALSE(IsOpen());
    box.SetText(PathTo(u"/Mu"_s));
    EXPECT_FALSE(IsOpen());
    for (const QString& text : {u"Mus"_s, u"R:\\"_s, u":/"_s, u"/no such folder/"_s}) {
        box.SetText(QString());
        Type(text);
        EXPECT_FALSE(IsOpen()) << text.toStdString();
    }
}

TEST_F(Offers, AClickAnywhereElseHasItsEffectAndClosesThem) {
    TypePath(u"/Mu"_s);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(changes, box.Text().size());
    QtInput::Click(window, QPoint(390, 5)); // takes no focus
    ExpectClosed(u"/Mu"_s);
    Type(u"s"_s);
    EXPECT_TRUE(IsOpen());
    QtInput::Click(*button.Widget(), QPoint(20, 10));
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(IsOpen());
    ExpectBox(u"/Mus"_s);
}

TEST_F(Offers, TabMovesTheFocusAtTheFirstPress) {
    TypePath(u"/Mu"_s);
    Key(Qt::Key_Tab);
    EXPECT_FALSE(HasFocus());
    EXPECT_FALSE(IsOpen());
    ExpectBox(u"/Mu"_s);
    Key(Qt::Key_Space);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Offers, TheArrowsPutAFolderIntoTheBoxAndEscapeTakesItBack) {
    TypePath(u"/mu"_s);
    const int before = changes;
    Key(Qt::Key_Down);
    ExpectBox(u"/Music"_s);
    Key(Qt::Key_Down);
    ExpectBox(u"/music videos"_s);
    Key(Qt::Key_Down);
    ExpectBox(u"/mu"_s);
    Key(Qt::Key_Up);
    ExpectBox(u"/music videos"_s);
    EXPECT_EQ(changes, before + 4);
    Key(Qt::Key_Escape);
    ExpectClosed(u"/mu"_s);
}

TEST_F(Offers, EnterTakesTheChosenFolderAndGoesToTheWindowWhenNoneIsChosen) {
    int entered = 0;
    QObject::connect(box.Widget(), &QLineEdit::returnPressed, [&entered] { ++entered; });
    TypePath(u"/m"_s);
    Key(Qt::Key_Return);
    EXPECT_EQ(entered, 1);
    ExpectClosed(u"/m"_s);
    Type(u"u"_s);
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_EQ(entered, 1);
    ExpectClosed(u"/Music"_s);
    Type(QDir::separator() + u"x"_s);
    ExpectBox(u"/Music/x"_s);
}

TEST_F(Offers, AClickOnOneTakesIt) {
    TypePath(u"/mu"_s);
    QListWidget& list = *List();
    QtInput::Click(*list.viewport(), list.visualItemRect(list.item(1)).center());
    ExpectClosed(u"/music videos"_s);
}

TEST_F(Offers, AreShownInTheWindowAboveOrBelowTheBox) {
    TypePath(u"/"_s);
    EXPECT_TRUE(window.rect().contains(List()->geometry()));
    EXPECT_EQ(List()->geometry().bottom() + 1, box.Widget()->geometry().top());
    EXPECT_EQ(List()->width(), box.Widget()->width());
    window.resize(500, 400);
    EXPECT_FALSE(IsOpen());
    box.SetText(QString());
    box.Move(150, 450, 4500, 450);
    TypePath(u"/"_s);
    EXPECT_TRUE(window.rect().contains(List()->geometry()));
    EXPECT_EQ(List()->geometry().top(), box.Widget()->geometry().bottom() + 1);
    box.SetEnabled(false);
    EXPECT_FALSE(IsOpen());
}
