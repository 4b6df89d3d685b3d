#include "tests/copy/CopyFixture.h"

#include <cstring>

using namespace Qt::StringLiterals;

const QString Tmp = u"D:\\Music\\tmp"_s;
const ShownMessage Completed{u"Copy completed!"_s, u"Songlift"_s, MessageButtons::OK,
                             MessageIcon::Information};

CopyFixture::CopyFixture() {
    files.AddDrive(u"E:"_s);
    files.AddFolder(u"D:\\Music"_s);
    form.txtDestination.SetText(u"D:\\Music"_s);
    form.Form1.QueryUnload = [this](bool& cancel, UnloadMode) { OnQueryUnload(cancel); };
    form.cmdClear.SetEnabled(false);
    job.ShowOverwrite = [this] { ShowPrompt(); };
}

void CopyFixture::OnQueryUnload(bool& cancel) {
    cancel = job.StopToClose();
    closed += cancel ? 0 : 1;
}

TrackRecord& CopyFixture::AddRecord(const char* artist, const char* album, const char* title) {
    auto& artists = library.Artists;
    if (artists.empty() || artists.back().Name != Text(artist)) {
        artists.push_back({Text(artist), {}, true, static_cast<qint32>(artists.size())});
    }
    auto& albums = artists.back().Albums;
    if (albums.empty() || albums.back().Name != Text(album)) {
        albums.push_back({Text(album), {}, true, static_cast<qint32>(albums.size())});
    }
    auto& tracks = albums.back().Tracks;
    TrackRecord track;
    track.Title = Text(title);
    track.Checked = true;
    track.SourceIndex = static_cast<qint32>(tracks.size());
    ++library.TrackCount;
    track.Location =
        u"E:\\iPod_Control\\Music\\F00\\"_s + QString::number(library.TrackCount) + u".mp3"_s;
    tracks.push_back(track);
    return tracks.back();
}

TrackRecord& CopyFixture::AddTrack(const char* artist, const char* album, const char* title,
                                   const QByteArray& bytes, qint32 trackNumber) {
    TrackRecord& track = AddRecord(artist, album, title);
    track.TrackNumber = trackNumber;
    track.FileSize = static_cast<qint32>(bytes.size());
    files.AddFile(track.Location, bytes);
    library.TotalSize += track.FileSize;
    summary.SelectedSize += track.FileSize;
    return track;
}

TrackRecord& CopyFixture::AddLargeTrack(const char* artist, const char* album, const char* title,
                                        qint32 size) {
    TrackRecord& track = AddTrack(artist, album, title, {});
    track.FileSize = size;
    files.AddLargeFile(track.Location, size, library.TrackCount);
    library.TotalSize += size;
    summary.SelectedSize += size;
    return track;
}

void CopyFixture::AddTracks(std::initializer_list<const char*> titles) {
    for (const char* title : titles) {
        AddTrack("Abba", "Arrival", title, title);
    }
}

void CopyFixture::SetOptions(const char* options) {
    const auto isSet = [options](char letter) {
        return std::strchr(options, letter) != nullptr ? 1 : 0;
    };
    form.chkArtist.SetValue(isSet('A'));
    form.chkAlbum.SetValue(isSet('B'));
    form.chkArtistName.SetValue(isSet('a'));
    form.chkAlbumName.SetValue(isSet('b'));
    form.chkTrackNum.SetValue(isSet('n'));
}

void CopyFixture::ShowFirstArtistOnly() {
    parts.Result.Begin();
    parts.Result.ReplaceLibrary({library.Artists.front()});
}

void CopyFixture::Press() {
    form.cmdCopy.UserPress();
}

void CopyFixture::AtYield(int yield, Event action) {
    events.OnYield = [yield, action = std::move(action)](int number) {
        if (number == yield) {
            action();
        }
    };
}

void CopyFixture::CancelAtYield(int yield) {
    AtYield(yield, [this] { form.cmdCopy.UserPress(); });
}

void CopyFixture::CloseAtYield(int yield) {
    AtYield(yield, [this] { form.Form1.UserClose(); });
}

QStringList CopyFixture::Copied() const {
    return files.FilesBelow(u"D:\\Music"_s);
}

QStringList CopyFixture::Names() const {
    QStringList names;
    for (const QString& path : Copied()) {
        names += path.mid(u"D:\\Music\\"_s.size());
    }
    return names;
}

void CopyFixture::ShowPrompt() {
    prompted += prompt.OverwriteFile();
    FakeWindow window;
    FakeLabelControl lblMessage;
    FakeButtonControl buttons[3];
    FakeCheckControl chkSame;
    frmOverwrite shown(prompt, {window, lblMessage, buttons[0], buttons[1], buttons[2], chkSame});
    shown.Form_Load();
    PromptUse use = PromptUse::CloseBox;
    if (!promptUses.empty()) {
        use = promptUses.front();
        promptUses.pop_front();
    }
    const bool all =
        use == PromptUse::ReplaceAll || use == PromptUse::SkipAll || use == PromptUse::CancelAll;
    chkSame.SetValue(all);
    if (use != PromptUse::CloseBox) {
        window.ModalScript = [&] { buttons[static_cast<int>(use) % 3].UserPress(); };
    }
    window.ShowModal();
}

void CopyFixture::ExpectIdle() const {
    EXPECT_FALSE(job.Copying);
    EXPECT_FALSE(job.CancelCopy());
    EXPECT_FALSE(prompt.OverwriteAll());
    EXPECT_EQ(form.Form1.Caption(), u"Songlift"_s);
    EXPECT_EQ(form.cmdCopy.Caption(), u"&Copy to destination"_s);
    ExpectEnabled(true);
    EXPECT_EQ(form.cmdClear.Enabled(), parts.WordSearch.SearchingText());
    EXPECT_EQ(files.OpenFiles, 0);
}

void CopyFixture::ExpectEnabled(bool isEnabled) const {
    for (const Control* control : std::initializer_list<const Control*>{
             &form.Combo1, &form.tbsFilter, &form.lstArtists, &form.lstAlbums, &form.lstSongs,
             &form.chkAlbumName, &form.chkArtistName, &form.chkTrackNum, &form.txtDestination,
             &form.chkArtist, &form.chkAlbum, &form.cmdBrowse, &form.txtSearch, &form.cmdSearch,
             &form.frmDP, &form.frmTN, &form.frmDestination}) {
        EXPECT_EQ(control->Enabled(), isEnabled);
    }
}
