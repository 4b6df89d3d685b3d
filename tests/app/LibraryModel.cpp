#include "tests/app/LibraryModel.h"

#include "selection/SelectionSummary.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool HoldsEveryWord(const QString& text, const QString& words) {
    for (const QString& word : words.split(u' ')) {
        if (!text.toLower().contains(word)) {
            return false;
        }
    }
    return true;
}

/// The current row's text; null for the "All" row and for none.
QString Current(const FakeListControl& list) {
    return list.ListIndex() >= 1 ? list.List(list.ListIndex()) : QString();
}

} // namespace

void LibraryModel::Add(char device, const std::vector<SampleTrack>& tracks) {
    for (const SampleTrack& track : tracks) {
        Devices[device].push_back({track.Artist, track.Album, track.Title, track.FileSize,
                                   track.TypeText.contains(u"video"_s)});
    }
}

void LibraryModel::Load(char device) {
    LoadedDevice = device;
    InForce.clear();
    for (ModelSong& song : Loaded()) {
        song.Ticked = false;
    }
}

void LibraryModel::Narrow(const QString& text) {
    InForce = text.trimmed().isEmpty() ? QString() : text;
}

bool LibraryModel::IsShown(const ModelSong& song, const QString& tab) const {
    if (ShownTitles) {
        return ShownTitles->contains(song.Title);
    }
    return (tab == u"All Files"_s || song.IsVideo == (tab == u"Video"_s)) &&
           (HoldsEveryWord(song.Artist, InForce) || HoldsEveryWord(song.Album, InForce) ||
            HoldsEveryWord(song.Title, InForce));
}

void LibraryModel::Tick(Name name, const QStringList& rows, const QString& tab, bool ticked) {
    for (ModelSong& song : Loaded()) {
        song.Ticked = IsShown(song, tab) && rows.contains(song.*name) ? ticked : song.Ticked;
    }
}

void LibraryModel::TakeTicks(const FakeListControl& lstSongs) {
    for (int row = 1; row < lstSongs.ListCount(); ++row) {
        Tick(&ModelSong::Title, {lstSongs.List(row)}, u"All Files"_s, lstSongs.Selected(row));
    }
}

QStringList LibraryModel::TickedTitles() const {
    QStringList titles;
    for (const ModelSong& song : Loaded()) {
        titles += song.Ticked ? QStringList(song.Title) : QStringList();
    }
    return titles;
}

void LibraryModel::ExpectShown(const FakeForm1& form) const {
    const QString tab = form.tbsFilter.SelectedCaption();
    const QString artist = Current(form.lstArtists);
    const QString album = Current(form.lstAlbums);
    ExpectRows(form.lstArtists, &ModelSong::Artist, tab, {}, {});
    ExpectRows(form.lstAlbums, &ModelSong::Album, tab, artist, {});
    ExpectRows(form.lstSongs, &ModelSong::Title, tab, artist, album);
    const QString& toolTip = form.lblFullName.ToolTip(); // of a name that does not fit
    EXPECT_EQ(toolTip.isEmpty() ? form.lblFullName.Caption() : toolTip,
              FullName(artist, album, Current(form.lstSongs)));
    EXPECT_EQ(form.lblMessage.Caption(), Summary());
    EXPECT_EQ(form.cmdCopy.Enabled(), !TickedTitles().isEmpty());
}

std::set<QString> LibraryModel::Rows(Name name, const QString& tab, const QString& artist,
                                     const QString& album) const {
    std::set<QString> rows;
    for (const ModelSong& song : Loaded()) {
        if (IsShown(song, tab) && (artist.isNull() || song.Artist == artist) &&
            (album.isNull() || song.Album == album)) {
            rows.insert(song.*name);
        }
    }
    return rows;
}

/// A row may be ticked for a song that the result leaves out, and must be for one that it shows.
void LibraryModel::ExpectRows(const FakeListControl& list, Name name, const QString& tab,
                              const QString& artist, const QString& album) const {
    std::set<QString> names = Rows(name, tab, artist, album);
    ASSERT_EQ(list.ListCount(), names.empty() ? 0 : static_cast<int>(names.size()) + 1);
    bool allTicked = true;
    for (int row = 1; row < list.ListCount(); ++row) {
        const QString text = list.List(row);
        EXPECT_EQ(names.erase(text), 1U) << text.toStdString();
        bool may = false, must = false;
        for (const ModelSong& song : Loaded()) {
            const bool counts = song.Ticked && song.*name == text;
            may = may || counts;
            must = must || (counts && IsShown(song, tab));
        }
        EXPECT_TRUE(list.Selected(row) ? may : !must) << text.toStdString();
        allTicked = allTicked && list.Selected(row);
    }
    if (list.ListCount() > 0) {
        EXPECT_EQ(list.Selected(0), allTicked);
        EXPECT_GE(list.ListIndex(), 0);
        EXPECT_TRUE(list.Enabled());
    }
}

QString LibraryModel::FullName(const QString& artist, const QString& album,
                               const QString& title) const {
    for (const ModelSong& song : Loaded()) {
        if (!title.isNull() && song.Title == title) {
            return song.Artist + u" / "_s + song.Album + u" / "_s + title;
        }
        if (title.isNull() && !album.isNull() && song.Album == album) {
            return song.Artist + u" / "_s + album;
        }
    }
    return artist;
}

QString LibraryModel::Summary() const {
    double ticked = 0, total = 0;
    for (const ModelSong& song : Loaded()) {
        total += static_cast<double>(song.Size);
        ticked += song.Ticked ? static_cast<double>(song.Size) : 0;
    }
    return u"Selected: "_s + GetSizeInText(ticked) + u" of "_s + GetSizeInText(total);
}

void LibraryModel::ExpectWholeFiles(const RecordedFiles& files) const {
    EXPECT_EQ(files.OpenFiles, 0);
    for (const char* device : {"E:", "F:"}) {
        EXPECT_EQ(files.ChangesBelow(QString::fromLatin1(device)), QStringList());
    }
    for (const QString& file : files.FilesBelow(u"D:\\Music"_s)) {
        EXPECT_TRUE(IsWhole(file, files.Length(file))) << file.toStdString();
    }
}

/// A file of a song's title and length; equal titles of two devices have sizes of their own.
bool LibraryModel::IsWhole(const QString& file, qint64 length) const {
    const QString name = file.left(file.lastIndexOf(u'.'));
    for (const auto& [letter, songs] : Devices) {
        for (const ModelSong& song : songs) {
            if (name.endsWith(song.Title) && length == song.Size) {
                return true;
            }
        }
    }
    return false;
}
