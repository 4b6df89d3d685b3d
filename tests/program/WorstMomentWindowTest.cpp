// A user who never waits, on the real window with its real message boxes and its real prompt: keys,
// clicks, closing, minimising and unplugging come inside every yield of a search and of a job, and
// while a box stands open. Nothing may crash or hang, no file may be harmed.

#include "app/Form1Window.h"
#include "app/OverwriteWindow.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/QtWindowManager.h"
#include "tests/app/ProgramFixture.h"
#include "tests/support/ITunesDBWriter.h"
#include "tests/support/Walks.h"
#include "tests/window/QtInput.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <random>

namespace {

QString Q(const char* text) {
    return QString::fromUtf8(text);
}

/// Lets events in at every yield, and the test act there.
class OpenEventLoop : public EventLoop {
public:
    Event OnYield;

    void BeginWork() override {}
    void Yield() override {
        Raise(OnYield);
        QCoreApplication::processEvents();
    }
};

class HastyUser {
public:
    explicit HastyUser(unsigned seed) : m_random(seed) {
        files.AddDrive(Q("D:"));
        files.AddFolder(Q("D:\\Music"));
        shell.PickedFolder = Q("D:\\Music");
        Plug();
        events.OnYield = [this] { AtYield(); };
        QObject::connect(&m_boxes, &QTimer::timeout, qApp, [this] { AtBox(); });
        m_boxes.start(0);
        program.Form_Load();
        controls.txtDestination.SetText(Q("D:\\Music"));
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&Top()));
    }

    bool IsClosed() { return !Top().isVisible(); }

    void Step() {
        Act();
        QCoreApplication::processEvents();
    }

    /// Nothing runs and nothing is locked. A closed window may leave its last job's state behind.
    void Check() {
        EXPECT_EQ(files.OpenFiles, 0);
        EXPECT_EQ(files.ChangesBelow(Q("E:")), QStringList());
        for (const QString& file : files.FilesBelow(Q("D:"))) {
            EXPECT_EQ(files.Length(file) % 1000, 7) << file.toStdString(); // as all on the device
        }
        if (IsClosed()) {
            return;
        }
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_NE(controls.cmdCopy.Caption(), Q("&Cancel"));
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        for (const Control* control :
             {&controls.Picture2, &controls.frmDP, &controls.frmTN, &controls.frmDestination}) {
            EXPECT_TRUE(control->Enabled());
        }
        EXPECT_TRUE(controls.tbsFilter.Enabled());
        for (const ListControl* list : Lists()) {
            EXPECT_TRUE(list->Visible());
            bool allTicked = true;
            int ticked = 0;
            for (int row = 0; row < list->ListCount(); ++row) {
                allTicked = allTicked && (row == 0 || list->Selected(row));
                ticked += list->Selected(row) ? 1 : 0;
            }
            EXPECT_EQ(list->SelCount(), ticked);
            EXPECT_TRUE(list->ListCount() == 0 || list->Selected(0) == allTicked);
        }
    }

    /// After all of it the window still does what it is for.
    void ExpectNextRequestWorks() {
        if (!m_plugged) {
            Plug();
        }
        m_hasty = false;
        // A shortcut pressed just now clicks its button, and cancels a job, a tenth of a second on.
        QTest::qWait(200);
        Top().showNormal();
        Top().resize(1000, 700);
        controls.Combo1.DropDown();
        controls.Combo1.SetText(controls.Combo1.List(0));
        controls.txtSearch.SetText(Q("x"));
        controls.txtSearch.SetText(QString());
        controls.tbsFilter.Select(0);
        ASSERT_EQ(controls.lstArtists.ListCount(), 3);
        controls.lstArtists.SetListIndex(0);
        controls.lstArtists.SetSelected(0, false);
        controls.lstArtists.SetSelected(0, true);
        files.Remove(Q("D:\\Music"));
        files.AddFolder(Q("D:\\Music"));
        controls.txtDestination.SetText(Q("D:\\Music"));
        QCoreApplication::processEvents();
        controls.cmdCopy.Click();
        EXPECT_EQ(files.FilesBelow(Q("D:\\Music")).size(), 6);
    }

    int Meanwhiles = 0;
    int Boxes = 0;

private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
    QWidget& Top() { return *window.Window().Widget(); }
    QWidget* Button(const char* name) { return Top().findChild<QWidget*>(Q(name)); }
    std::array<ListControl*, 3> Lists() {
        return {&controls.lstArtists, &controls.lstAlbums, &controls.lstSongs};
    }

    void Plug() {
        std::vector<SampleTrack> tracks = SmallLibrary();
        for (SampleTrack& track : tracks) {
            track.FileSize = track.FileSize / 1000 * 1000 + 7;
        }
        files.AddDrive(Q("E:"));
        files.AddFile(Q("E:\\iPod_Control\\iTunes\\iTunesDB"), WriteITunesDB(tracks));
        for (const SampleTrack& track : tracks) {
            QString location = track.Location;
            location.replace(QLatin1Char('/'), QLatin1Char('\\'));
            files.AddLargeFile(Q("E:\\iPod_Control\\Music\\") + location, track.FileSize);
        }
        drives.Mounted = {{QLatin1Char('E'), Q("MY IPOD")}};
        m_plugged = true;
    }

    void Unplug() {
        files.RemoveDrive(Q("E:"));
        drives.Mounted.clear();
        m_plugged = false;
    }

    // ---- what comes at any moment

    void Act() {
        switch (Below(10)) {
        case 0:
        case 1:
        case 2:
            ClickAnywhere();
            break;
        case 3:
        case 4:
            PressAnyKey();
            break;
        case 5:
            ClickWidget({"cmdCopy", "cmdCopy", "cmdSearch", "cmdClear", "chkArtist"});
            break;
        case 6:
            ClickWidget({"lstArtists", "lstAlbums", "lstSongs", "tbsFilter", "txtSearch"});
            break;
        case 7:
            if (Below(4) == 0) {
                m_plugged ? Unplug() : Plug();
            }
            if (controls.timScan.Enabled()) {
                controls.timScan.Timer();
            }
            break;
        case 8:
            TickARow();
            break;
        default:
            MoveWindow();
        }
    }

    void ClickAnywhere() {
        const QPoint place(static_cast<int>(Below(static_cast<unsigned>(Top().width()))),
                           static_cast<int>(Below(static_cast<unsigned>(Top().height()))));
        const Qt::MouseButton button = Below(5) == 0 ? Qt::RightButton : Qt::LeftButton;
        if (Below(4) == 0) {
            QtInput::MoveTo(Top(), place);
            QtInput::DoubleClick(Top(), place);
        } else {
            QtInput::Press(Top(), place, button);
            QtInput::MoveTo(Top(), place + QPoint(static_cast<int>(Below(80)) - 40, 0));
            QtInput::Release(Top(), place, button);
        }
    }

    void ClickWidget(const std::vector<const char*>& names) {
        QWidget& widget = *Button(names[Below(static_cast<unsigned>(names.size()))]);
        const QPoint place(static_cast<int>(Below(static_cast<unsigned>(widget.width()))),
                           static_cast<int>(Below(static_cast<unsigned>(widget.height()))));
        QtInput::Click(widget, place);
    }

    void PressAnyKey() {
        static constexpr Qt::Key keys[] = {
            Qt::Key_Space,  Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backtab,
            Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Home,   Qt::Key_End, Qt::Key_Menu,
            Qt::Key_Delete, Qt::Key_A,      Qt::Key_E,      Qt::Key_X,   Qt::Key_Backspace};
        QtInput::Key(Top(), keys[Below(std::size(keys))]);
        if (Below(6) == 0) {
            QTest::keyClick(Top().windowHandle(), Below(2) == 0 ? Qt::Key_C : Qt::Key_S,
                            Qt::AltModifier);
        }
    }

    void TickARow() {
        ListControl& list = *Lists()[Below(3)];
        auto& view = *Top().findChild<QListView*>(Q(&list == Lists()[0]   ? "lstArtists"
                                                    : &list == Lists()[1] ? "lstAlbums"
                                                                          : "lstSongs"));
        if (list.ListCount() > 0) {
            const int row = static_cast<int>(Below(static_cast<unsigned>(list.ListCount())));
            view.scrollTo(view.model()->index(row, 0));
            QtInput::Click(view, QtInput::CheckBoxOf(view, row));
        }
    }

    void MoveWindow() {
        switch (Below(8)) {
        case 0:
            Top().showMinimized();
            break;
        case 1:
            Top().showMaximized();
            break;
        case 2:
        case 3:
            Top().showNormal();
            break;
        case 4:
            if (Below(12) == 0) {
                // The window manager closes no window that a box stands over.
                if (QApplication::activeModalWidget() == nullptr) {
                    Top().close();
                }
            }
            break;
        default:
            Top().resize(500 + static_cast<int>(Below(1200)), 400 + static_cast<int>(Below(700)));
        }
    }

    // ---- the worst moments

    void AtYield() {
        if (!m_hasty || m_depth > 2 || Below(2) == 0 || IsClosed()) {
            return;
        }
        ++Meanwhiles;
        ++m_depth;
        Act();
        --m_depth;
    }

    /// Answers whatever stands open, not before some vain clicks at the window behind it.
    void AtBox() {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            // A little later: this timer, which would still be under way, could not answer the box
            // that the chosen entry may open.
            const Qt::Key key = Below(3) == 0 ? Qt::Key_Return : Qt::Key_Escape;
            QTimer::singleShot(0, popup, [popup = QPointer<QWidget>(popup), key] {
                if (popup == QApplication::activePopupWidget()) {
                    QTest::keyClick(popup, key);
                }
                if (popup != nullptr && popup == QApplication::activePopupWidget()) {
                    popup->close();
                }
            });
            return;
        }
        QWidget* box = QApplication::activeModalWidget();
        if (box == nullptr) {
            return;
        }
        ++Boxes;
        if (m_hasty && m_depth < 3) {
            ++m_depth;
            Act();
            --m_depth;
        }
        if (box != QApplication::activeModalWidget()) {
            return;
        }
        const auto buttons = box->findChildren<QAbstractButton*>();
        if (m_hasty && Below(4) == 0) {
            QTest::keyClick(box, Qt::Key_Escape);
        } else {
            QtInput::Click(*buttons[Below(static_cast<unsigned>(buttons.size()))], QPoint(5, 5));
        }
    }

    std::mt19937 m_random;
    bool m_plugged = false;
    bool m_hasty = true;
    int m_depth = 0;
    QTimer m_boxes;

public:
    FakeFileSystem files;
    FakeDriveService drives;
    FakeSettingsStore store;
    FakeShell shell;
    OpenEventLoop events;
    InlineWorker worker;
    QtWindowManager windowManager;
    Form1Window window{windowManager};
    Form1Controls& controls = window.Controls();
    QtMessages messages{window.Window().Widget()};
    FakeWindow frmPreview;
    FakeMediaPlayerControl player;
    PreviewControls preview{frmPreview, player};
    Services services{files, drives, store, shell, windowManager, messages, events, worker, worker};
    Form1 program{services, controls, preview, [this](OverwritePrompt& prompt) {
                      OverwriteWindow(window.Window().Widget(), prompt).Ask();
                  }};
};

} // namespace

TEST(WorstMomentWindow, NothingCrashesHangsOrHarmsAFile) {
    int steps = 0, meanwhiles = 0, boxes = 0, closed = 0;
    for (unsigned seed = 1; seed <= Walks(20); ++seed) {
        HastyUser user(seed);
        for (int step = 0; step < 200 && !user.IsClosed(); ++step, ++steps) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
            user.Step();
            user.Check();
            ASSERT_FALSE(testing::Test::HasFailure());
        }
        closed += user.IsClosed() ? 1 : 0;
        if (!user.IsClosed()) {
            user.ExpectNextRequestWorks();
        }
        meanwhiles += user.Meanwhiles;
        boxes += user.Boxes;
    }
    testing::Test::RecordProperty("steps", steps);
    testing::Test::RecordProperty("meanwhiles", meanwhiles);
    testing::Test::RecordProperty("boxes", boxes);
    testing::Test::RecordProperty("closed", closed);
    EXPECT_GT(meanwhiles, 100);
    EXPECT_GT(boxes, 20);
}
