// A user who never waits, on the real window with its real message boxes and its real prompt: keys,
// clicks, closing, minimising and unplugging come inside every yield of a search and of a job, and
// while a box is open. Nothing may crash or hang, no file may be harmed.

#include "app/OverwriteWindow.h"
#include "platform/qt/HeldInput.h"
#include "platform/qt/QtMessages.h"
#include "tests/program/RealWindow.h"
#include "tests/support/Walks.h"

#include <QAbstractButton>
#include <QPointer>

#include <random>

using namespace Qt::StringLiterals;

namespace {

/// As all on the device, and nothing else, are long.
constexpr qint64 OddBytes = 7;

std::vector<SampleTrack> OddLibrary() {
    std::vector<SampleTrack> tracks = SmallLibrary();
    for (SampleTrack& track : tracks) {
        track.FileSize = track.FileSize / 1000 * 1000 + OddBytes;
    }
    return tracks;
}

/// Lets events in at every yield, and acts there.
class HastyUser : private EventLoop, private RealWindow {
public:
    explicit HastyUser(unsigned seed) : RealWindow(this), m_random(seed) {
        shell.PickedFolder = u"D:\\Music"_s;
        AtPrompt = [this](OverwritePrompt& prompt) { OverwriteWindow(&Top(), prompt).Ask(); };
        messages.WhileShown = [this](const ShownMessage& shown) {
            messages.Answers = {
                m_messages.Show(shown.Text, shown.Title, shown.Buttons, shown.Icon)};
        };
        QObject::connect(&m_boxes, &QTimer::timeout, qApp, [this] { AtBox(); });
        m_boxes.start(0);
        Start(OddLibrary());
    }

    bool IsClosed() { return !Top().isVisible(); }

    void Step() {
        Act();
        QCoreApplication::processEvents();
    }

    /// Nothing runs and nothing is locked. A closed window may leave its last job's state behind.
    void Check() {
        EXPECT_EQ(files.OpenFiles, 0);
        EXPECT_EQ(files.ChangesBelow(u"E:"_s), QStringList());
        for (const QString& file : files.FilesBelow(u"D:"_s)) {
            EXPECT_EQ(files.Length(file) % 1000, OddBytes) << file.toStdString();
        }
        if (IsClosed()) {
            return;
        }
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_NE(controls.cmdCopy.Caption(), u"&Cancel"_s);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        for (const char* name : {"Picture2", "frmDP", "frmTN", "frmDestination", "tbsFilter"}) {
            EXPECT_TRUE(Widget(name).isEnabled()) << name;
        }
        for (const char* name : ListNames) {
            const ListControl& list = List(name);
            EXPECT_TRUE(list.Visible());
            bool allTicked = true;
            int ticked = 0;
            for (int row = 0; row < list.ListCount(); ++row) {
                allTicked = allTicked && (row == 0 || list.Selected(row));
                ticked += list.Selected(row) ? 1 : 0;
            }
            EXPECT_EQ(list.SelCount(), ticked);
            EXPECT_TRUE(list.ListCount() == 0 || list.Selected(0) == allTicked);
        }
    }

    /// After all this the window still works.
    void ExpectNextRequestWorks() {
        if (drives.Mounted.empty()) {
            PlugIn(OddLibrary());
        }
        m_hasty = false;
        // A shortcut pressed just now clicks its button, and cancels a job, a tenth of a second on.
        QTest::qWait(200);
        Top().showNormal();
        Top().resize(1000, 700);
        controls.Combo1.DropDown();
        controls.Combo1.SetText(controls.Combo1.List(0));
        controls.txtSearch.SetText(u"x"_s);
        controls.txtSearch.SetText(QString());
        controls.tbsFilter.Select(0);
        ASSERT_EQ(controls.lstArtists.ListCount(), 3);
        controls.lstArtists.SetListIndex(0); // as a click on a check box does
        controls.lstArtists.SetSelected(0, false);
        controls.lstArtists.SetSelected(0, true);
        files.Remove(u"D:\\Music"_s);
        files.AddFolder(u"D:\\Music"_s);
        controls.txtDestination.SetText(u"D:\\Music"_s);
        QCoreApplication::processEvents();
        controls.cmdCopy.Click();
        EXPECT_EQ(Copied().size(), 6);
    }

    int Meanwhiles = 0;
    int Boxes = 0;

private:
    static constexpr const char* ListNames[] = {"lstArtists", "lstAlbums", "lstSongs"};

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    template <class Choices>
    auto OneOf(const Choices& choices) {
        return choices[static_cast<size_t>(Below(static_cast<int>(std::size(choices))))];
    }
    QPoint PlaceIn(const QWidget& widget) {
        const int x = Below(widget.width());
        return {x, Below(widget.height())};
    }
    const ListControl& List(const char* name) {
        return name == ListNames[0]   ? controls.lstArtists
               : name == ListNames[1] ? controls.lstAlbums
                                      : controls.lstSongs;
    }

    // ---- what comes at any moment

    void Act() {
        static constexpr void (HastyUser::*acts[])() = {
            &HastyUser::ClickAnywhere, &HastyUser::ClickAnywhere, &HastyUser::ClickAnywhere,
            &HastyUser::PressAnyKey,   &HastyUser::PressAnyKey,   &HastyUser::ClickOneControl,
            &HastyUser::TickOneRow,    &HastyUser::LookForDevice, &HastyUser::MoveWindow};
        (this->*OneOf(acts))();
    }

    void ClickAnywhere() {
        const QPoint place = PlaceIn(Top());
        const Qt::MouseButton button = Below(5) == 0 ? Qt::RightButton : Qt::LeftButton;
        if (Below(4) == 0) {
            QtInput::MoveTo(Top(), place);
            QtInput::DoubleClick(Top(), place);
        } else {
            QtInput::Press(Top(), place, button);
            QtInput::MoveTo(Top(), place + QPoint(Below(80) - 40, 0));
            QtInput::Release(Top(), place, button);
        }
    }

    void ClickOneControl() {
        static constexpr const char* names[] = {"cmdCopy",    "cmdCopy",   "cmdCopy",  "cmdSearch",
                                                "cmdClear",   "chkArtist", "lstSongs", "lstAlbums",
                                                "lstArtists", "tbsFilter", "txtSearch"};
        QWidget& widget = Widget(OneOf(names));
        QtInput::Click(widget, PlaceIn(widget));
    }

    void TickOneRow() {
        const char* name = OneOf(ListNames);
        if (List(name).ListCount() > 0) {
            TickRow(name, Below(List(name).ListCount()));
        }
    }

    void PressAnyKey() {
        static constexpr Qt::Key keys[] = {
            Qt::Key_Space,  Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backtab,
            Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Home,   Qt::Key_End, Qt::Key_Menu,
            Qt::Key_Delete, Qt::Key_A,      Qt::Key_E,      Qt::Key_X,   Qt::Key_Backspace};
        Key(OneOf(keys));
        if (Below(6) == 0) {
            QTest::keyClick(Top().windowHandle(), Below(2) == 0 ? Qt::Key_C : Qt::Key_S,
                            Qt::AltModifier);
        }
    }

    void LookForDevice() {
        if (Below(4) == 0) {
            drives.Mounted.empty() ? PlugIn(OddLibrary()) : Unplug();
        }
        if (controls.timScan.Enabled()) {
            controls.timScan.Timer();
        }
    }

    void MoveWindow() {
        const int what = Below(80);
        if (what < 10) {
            Top().showMinimized();
        } else if (what < 20) {
            Top().showMaximized();
        } else if (what < 40) {
            Top().showNormal();
        } else if (what > 40) {
            Top().resize(500 + Below(1200), 400 + Below(700));
        } else if (QApplication::activeModalWidget() == nullptr) {
            Top().close(); // the window manager never does so below a box
        }
    }

    // ---- the worst moments

    void ActMeanwhile() {
        ++m_depth;
        Act();
        --m_depth;
    }

    void BeginWork() override {}
    bool YieldHoldingInput() override { return HeldInput::ProcessEvents(); }
    qint64 MillisecondsToYield() const override { return 0; }
    void Yield() override {
        if (m_hasty && m_depth <= 2 && Below(2) != 0 && !IsClosed()) {
            ++Meanwhiles;
            ActMeanwhile();
        }
        QCoreApplication::processEvents();
    }

    /// Answers whatever box is open, after some clicks in vain on the window behind it.
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
            ActMeanwhile();
        }
        if (box != QApplication::activeModalWidget()) {
            return;
        }
        if (m_hasty && Below(4) == 0) {
            QTest::keyClick(box, Qt::Key_Escape);
        } else {
            QtInput::Click(*OneOf(box->findChildren<QAbstractButton*>()), QPoint(5, 5));
        }
    }

    std::mt19937 m_random;
    bool m_hasty = true;
    int m_depth = 0;
    QTimer m_boxes;
    QtMessages m_messages{&Top()};
};

} // namespace

TEST(WorstMomentWindow, NothingCrashesOrHangsOrHarmsAFile) {
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
    testing::Test::RecordProperty("closed", closed);
    EXPECT_GT(meanwhiles, 100);
    EXPECT_GT(boxes, 20);
}
