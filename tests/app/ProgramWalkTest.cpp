// Users who tick, search, change tabs and devices, copy and cancel at random, on the whole program.
// What a job copies must be what the summary promised, whatever was done before.

#include "tests/app/ProgramFixture.h"
#include "tests/support/Walks.h"

#include "selection/SelectionSummary.h"

#include <gtest/gtest.h>

#include <random>

namespace {

class Walker : public ProgramFixture {
public:
    explicit Walker(unsigned seed) : m_random(seed) {
        PlugIn(QLatin1Char('E'), QStringLiteral("ONE"), RandomLibrary());
        PlugIn(QLatin1Char('F'), QStringLiteral("TWO"), RandomLibrary());
        Start();
        form.txtDestination.SetText(QStringLiteral("D:\\Music"));
        AtPrompt = [](OverwritePrompt& prompt) {
            FAIL() << "nothing stands in the way: " << prompt.OverwriteFile.toStdString();
        };
    }

    void Step() {
        switch (Below(12)) {
        case 0:
            Tick(form.lstArtists);
            break;
        case 1:
        case 2:
            Tick(form.lstAlbums);
            break;
        case 3:
        case 4:
            Tick(form.lstSongs);
            break;
        case 5:
            Click(Below(2) == 0 ? form.lstArtists : form.lstAlbums);
            break;
        case 6:
        case 7:
            form.txtSearch.UserReplace(RandomText());
            break;
        case 8:
            form.tbsFilter.UserSelectTab(static_cast<int>(Below(3)));
            break;
        case 9:
            form.cmdClear.UserPress();
            break;
        case 10:
            Copy();
            break;
        default:
            if (Below(6) == 0) {
                form.Combo1.UserChoose(static_cast<int>(Below(2)));
            } else {
                CancelledCopy();
            }
        }
    }

    void Check() {
        for (const FakeListControl* list : {&form.lstArtists, &form.lstAlbums, &form.lstSongs}) {
            if (list->ListCount() > 0) {
                const bool allTicked =
                    list->SelCount() - (list->Selected(0) ? 1 : 0) == list->ListCount() - 1;
                EXPECT_EQ(list->Selected(0), allTicked) << list->List(0).toStdString();
                EXPECT_GE(list->ListIndex(), 0);
                EXPECT_TRUE(list->Visible());
            }
        }
        if (form.lstArtists.SelCount() > 0) {
            EXPECT_TRUE(form.cmdCopy.Enabled());
        }
        EXPECT_TRUE(form.lblMessage.Caption().startsWith(QStringLiteral("Selected: ")))
            << form.lblMessage.Caption().toStdString();
        EXPECT_EQ(files.ChangesBelow(QStringLiteral("E:")), QStringList());
        EXPECT_EQ(files.ChangesBelow(QStringLiteral("F:")), QStringList());
        EXPECT_EQ(form.Form1.Caption(), QStringLiteral("Songlift"));
    }

    int Copies = 0;

private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

    std::vector<SampleTrack> RandomLibrary() {
        const QStringList names = {QStringLiteral("Abba"),     QStringLiteral("ABBA"),
                                   QStringLiteral("River?"),   QStringLiteral("River"),
                                   QStringLiteral("Old Song"), QStringLiteral(" . "),
                                   QStringLiteral("Ärzte")};
        std::vector<SampleTrack> tracks(5 + Below(40));
        int number = 0;
        for (SampleTrack& track : tracks) {
            track.Artist = names[Below(7)];
            track.Album = names[Below(7)];
            // Titles that differ only in case would meet as one file on this drive.
            track.Title = names[2 + Below(5)];
            track.FileSize = Below(500000);
            track.Location = QStringLiteral("F00/%1.mp3").arg(number++);
            track.TypeText = Below(3) == 0 ? QStringLiteral("MPEG-4 video file")
                                           : QStringLiteral("MPEG audio file");
        }
        return tracks;
    }

    QString RandomText() {
        const QStringList texts = {QStringLiteral("a"),        QStringLiteral("river"),
                                   QStringLiteral("old song"), QStringLiteral("no such thing"),
                                   QStringLiteral("  "),       QString()};
        return texts[Below(6)];
    }

    void Tick(FakeListControl& list) {
        if (list.ListCount() > 0) {
            list.UserToggle(static_cast<int>(Below(static_cast<unsigned>(list.ListCount()))));
        }
    }

    void Click(FakeListControl& list) {
        if (list.ListCount() > 0) {
            list.UserClick(static_cast<int>(Below(static_cast<unsigned>(list.ListCount()))));
        }
    }

    void EmptyDestination() {
        files.Remove(QStringLiteral("D:\\Music"));
        files.AddFolder(QStringLiteral("D:\\Music"));
    }

    void Copy() {
        EmptyDestination();
        messages.Shown.clear();
        const QString summary = form.lblMessage.Caption();
        // All in one folder, where equal names are numbered and nothing stands in the way.
        for (FakeCheckControl* option : {&form.chkArtist, &form.chkAlbum, &form.chkArtistName,
                                         &form.chkAlbumName, &form.chkTrackNum}) {
            option->SetValue(false);
        }
        const bool enabled = form.cmdCopy.Enabled();
        form.cmdCopy.UserPress();
        if (!enabled) {
            EXPECT_TRUE(messages.Shown.empty());
            return;
        }
        ++Copies;
        EXPECT_EQ(messages.Texts(), QStringList({QStringLiteral("Copy completed!")}));
        double bytes = 0;
        for (const QString& file : files.FilesBelow(QStringLiteral("D:\\Music"))) {
            bytes += static_cast<double>(files.Length(file));
        }
        EXPECT_TRUE(summary.startsWith(QStringLiteral("Selected: ") + GetSizeInText(bytes) +
                                       QStringLiteral(" of ")))
            << summary.toStdString() << " but " << bytes << " bytes were copied";
        EXPECT_EQ(form.lblMessage.Caption(), summary);
    }

    void CancelledCopy() {
        EmptyDestination();
        const QString summary = form.lblMessage.Caption();
        messages.Shown.clear();
        const int stopAt = events.Yields + 1 + static_cast<int>(Below(4));
        events.OnYield = [this, stopAt](int yield) {
            if (yield == stopAt) {
                form.cmdCopy.UserPress();
            }
        };
        form.cmdCopy.UserPress();
        events.OnYield = {};
        EXPECT_EQ(form.lblMessage.Caption(), summary);
        for (const ShownMessage& message : messages.Shown) {
            EXPECT_EQ(message.Text, QStringLiteral("Copy completed!"));
        }
    }

    std::mt19937 m_random;
};

} // namespace

TEST(ProgramWalk, WhateverTheUserDoesTheJobCopiesWhatTheSummaryPromised) {
    int copies = 0;
    for (unsigned seed = 1; seed <= Walks(40); ++seed) {
        Walker walker(seed);
        for (int step = 0; step < 120 && !testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
            walker.Step();
            walker.Check();
        }
        copies += walker.Copies;
    }
    EXPECT_GT(copies, 100);
}
