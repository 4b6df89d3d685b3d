#include "selection/Search.h"

#include "browser/MediaFilter.h"
#include "platform/IgnoringErrors.h"
#include "platform/ScopeGuard.h"

#include <algorithm>
#include <utility>

namespace {

bool HasEveryWord(const QStringList& words, QStringView text) {
    return std::all_of(words.begin(), words.end(),
                       [text](const QString& word) { return text.contains(word); });
}

QStringList WordsOf(const QString& text) {
    return text.split(u' ');
}

/// A whole record of the result: every album and track knows where it came from.
AlbumRecord WholeAlbum(const AlbumRecord& album, qint32 index) {
    AlbumRecord copy = album;
    copy.SourceIndex = index;
    qint32 trackIndex = 0;
    for (TrackRecord& track : copy.Tracks) {
        track.SourceIndex = trackIndex++;
    }
    return copy;
}

std::vector<AlbumRecord> WholeAlbums(const ArtistRecord& artist) {
    std::vector<AlbumRecord> albums;
    albums.reserve(artist.Albums.size());
    qint32 index = 0;
    for (const AlbumRecord& album : artist.Albums) {
        albums.push_back(WholeAlbum(album, index++));
    }
    return albums;
}

} // namespace

bool SplitSearch(const QString& FindText, const QString& InText) {
    return HasEveryWord(WordsOf(FindText), InText);
}

Search::Search(const Browser& browser, SelectionSummary& summary, EventLoop& eventLoop,
               WindowManager& windowManager, const SearchControls& controls)
    : m_library(browser.Library), m_lists(browser.Lists), m_result(browser.Result),
      m_artistList(browser.Artists), m_summary(summary), m_eventLoop(eventLoop),
      m_windowManager(windowManager), m_controls(controls) {
}

bool Search::AllowSearch() const {
    const QString text = m_controls.txtSearch.Text();
    return std::any_of(text.begin(), text.end(), [](QChar character) { return character != u' '; });
}

void Search::ResetState() {
    m_lowered.clear();
    m_searchRunning = m_searchPending = false;
    ForgetText();
}

void Search::AwaitLibrary() {
    m_controls.cmdClear.SetEnabled(false);
    m_controls.txtSearch.SetText({});
}

void Search::OfferSearch() {
    m_controls.txtSearch.SetEnabled(true);
    m_controls.cmdSearch.SetEnabled(true);
}

void Search::ShowNoMusic() {
    m_controls.cmdSearch.SetEnabled(false);
    m_controls.cmdClear.SetEnabled(false);
    m_controls.txtSearch.SetEnabled(false);
}

void Search::ShowNoDevice() {
    IgnoringErrors([this] { m_controls.cmdSearch.SetEnabled(false); });
    IgnoringErrors([this] { m_controls.cmdClear.SetEnabled(false); });
    IgnoringErrors([this] { m_controls.txtSearch.SetEnabled(false); });
    IgnoringErrors([this] { m_controls.txtSearch.SetText({}); });
}

void Search::ForgetText() {
    m_searchingText = false;
    m_searchString.clear();
}

bool Search::IsAllFiles() const {
    return SelectedFilter(m_controls.tbsFilter) == Filter::AllFiles;
}

void Search::cmdSearch_Click() {
    if (m_searchRunning) {
        return; // pressed while the search yields
    }
    m_controls.txtSearch.SetFocus();
    if (AllowSearch()) {
        m_searchingText = true;
        m_searchString = m_controls.txtSearch.Text();
        DoSearch();
    } else if (m_result.Search()) {
        cmdClear_Click();
    }
}

void Search::cmdClear_Click() {
    if (m_searchRunning) {
        return; // pressed while the search yields, which ends by itself in a moment
    }
    m_controls.txtSearch.SetFocus();
    m_controls.cmdClear.SetEnabled(false);
    if (m_result.Search()) {
        ForgetText();
        ShowFiltered();
    }
}

void Search::txtSearch_Change() {
    if (m_searchRunning) {
        m_searchPending = true;
    } else {
        cmdSearch_Click();
    }
}

void Search::txtSearch_GotFocus() {
    m_controls.txtSearch.Select(0, static_cast<int>(m_controls.txtSearch.Text().size()));
    m_controls.cmdSearch.SetDefault(true);
}

void Search::txtSearch_LostFocus() {
    m_controls.cmdSearch.SetDefault(false);
}

void Search::lblSearch_Click() {
    m_controls.txtSearch.SetFocus();
}

void Search::ShowFiltered() {
    if (m_searchingText || !IsAllFiles()) {
        DoSearch();
        return;
    }
    ScopeGuard failed([this] { ShowLibraryAgain(); });
    m_result.End();
    m_artistList.Clear(m_lists.AreEmpty());
    failed.Dismiss();
}

void Search::DoSearch() {
    // Without tracks, Artists may still hold the records of an earlier device.
    if (m_searchRunning || m_library.TrackCount < 1) {
        return;
    }
    const bool tabsHadFocus = m_windowManager.GetFocus() == m_controls.tbsFilter.Handle();
    ScopeGuard failed([this] { ShowLibraryAgain(); });
    NestedFlag::Guard building = m_lists.Building.Set();
    BeginSearch();
    for (;;) {
        ReplaceLibrary(BuildResult());
        if (!m_searchPending) {
            break;
        }
        RestartOnNewText();
    }
    EndSearch();
    building.End();
    // The tabs lost the focus when they were disabled; a user who types meanwhile keeps it.
    if (tabsHadFocus && m_windowManager.GetFocus() != m_controls.txtSearch.Handle()) {
        m_controls.tbsFilter.SetFocus();
    }
    ShowResult();
    failed.Dismiss();
    if (!m_searchingText && IsAllFiles()) {
        cmdClear_Click(); // the text was deleted while the search ran
    }
}

void Search::BeginSearch() {
    m_eventLoop.BeginWork(); // otherwise the tabs would turn grey for a moment at each keystroke
    if (m_result.Search()) {
        m_artistList.PutLibraryBack(m_lists.AreEmpty());
    } else {
        m_artistList.RememberRows(m_lists.AreEmpty());
    }
    m_result.Begin();
    m_controls.cmdClear.SetEnabled(m_searchingText);
    m_searchRunning = true;
    m_controls.Picture2.SetEnabled(false);
    m_controls.tbsFilter.SetEnabled(false);
    LowerNames();
}

void Search::EndSearch() {
    m_controls.tbsFilter.SetEnabled(true);
    m_controls.Picture2.SetEnabled(true);
    m_searchRunning = false;
}

void Search::ShowLibraryAgain() {
    EndSearch();
    m_searchPending = false;
    ForgetText();
    m_artistList.RecoverLibrary();
    m_controls.cmdClear.SetEnabled(false);
    if (!IsAllFiles()) {
        m_controls.tbsFilter.Select(0);
    }
    m_artistList.RebuildLists();
    m_artistList.EnableCopy();
    m_summary.CalculateSize(false);
}

/// A result for an outdated text is never shown. The new text may be empty; and where only a filter
/// tab was being applied, there was no text before.
void Search::RestartOnNewText() {
    m_searchPending = false;
    m_searchString = m_controls.txtSearch.Text();
    m_searchingText = AllowSearch();
    m_controls.cmdClear.SetEnabled(m_searchingText);
    m_result.PutLibraryBack();
    m_artistList.EnableLists();
}

void Search::LowerNames() {
    if (!m_lowered.empty()) {
        return;
    }
    std::vector<LoweredArtist> artists;
    artists.reserve(m_library.Artists.size());
    for (const ArtistRecord& artist : m_library.Artists) {
        LoweredArtist& lowered = artists.emplace_back();
        lowered.Name = artist.Name.toLower();
        lowered.Albums.reserve(artist.Albums.size());
        for (const AlbumRecord& album : artist.Albums) {
            LoweredAlbum& loweredAlbum = lowered.Albums.emplace_back();
            loweredAlbum.Name = album.Name.toLower();
            loweredAlbum.Ends.reserve(album.Tracks.size());
            for (const TrackRecord& track : album.Tracks) {
                loweredAlbum.Titles += track.Title.toLower();
                loweredAlbum.Ends.push_back(static_cast<qint32>(loweredAlbum.Titles.size()));
                loweredAlbum.Titles += u' ';
            }
        }
    }
    m_lowered = std::move(artists); // all of them or none, where memory runs out
}

std::vector<ArtistRecord> Search::BuildResult() {
    const Wanted wanted{WordsOf(m_searchString.toLower()), SelectedFilter(m_controls.tbsFilter)};
    std::vector<ArtistRecord> result;
    for (size_t i = 0; i < m_library.Artists.size(); ++i) {
        const ArtistRecord& artist = m_library.Artists[i];
        const LoweredArtist& lowered = m_lowered.at(i);
        m_eventLoop.Yield();
        const bool matches = HasEveryWord(wanted.Words, lowered.Name);
        std::vector<AlbumRecord> albums = matches && wanted.Tab == Filter::AllFiles
                                              ? WholeAlbums(artist)
                                              : MatchingAlbums(artist, lowered, wanted, matches);
        if (!albums.empty()) {
            result.push_back({.Name = artist.Name,
                              .Albums = std::move(albums),
                              .Checked = artist.Checked,
                              .SourceIndex = static_cast<qint32>(i)});
        }
    }
    return result;
}

std::vector<AlbumRecord> Search::MatchingAlbums(const ArtistRecord& artist,
                                                const LoweredArtist& lowered, const Wanted& wanted,
                                                bool artistMatches) {
    std::vector<AlbumRecord> found;
    for (size_t i = 0; i < artist.Albums.size(); ++i) {
        const AlbumRecord& album = artist.Albums[i];
        const LoweredAlbum& loweredAlbum = lowered.Albums.at(i);
        m_eventLoop.Yield();
        const bool matches = artistMatches || HasEveryWord(wanted.Words, loweredAlbum.Name);
        if (matches && wanted.Tab == Filter::AllFiles) {
            found.push_back(WholeAlbum(album, static_cast<qint32>(i)));
            continue;
        }
        m_eventLoop.Yield();
        if (m_searchPending) {
            break; // the text has changed: this result will be thrown away
        }
        if (matches || HasEveryWord(wanted.Words, loweredAlbum.Titles)) {
            AlbumRecord tracks = MatchingTracks(album, loweredAlbum, wanted, matches);
            if (!tracks.Tracks.empty()) {
                tracks.SourceIndex = static_cast<qint32>(i);
                found.push_back(std::move(tracks));
            }
        }
    }
    return found;
}

AlbumRecord Search::MatchingTracks(const AlbumRecord& album, const LoweredAlbum& lowered,
                                   const Wanted& wanted, bool albumMatches) {
    AlbumRecord found;
    found.Name = album.Name;
    found.Checked = album.Checked;
    qint32 begin = 0;
    for (size_t i = 0; i < album.Tracks.size(); ++i) {
        const TrackRecord& track = album.Tracks[i];
        const qint32 end = lowered.Ends.at(i);
        const QStringView title = QStringView(lowered.Titles).sliced(begin, end - begin);
        begin = end + 1;
        if (CorrectFiletype(wanted.Tab, track.Kind) &&
            (albumMatches || HasEveryWord(wanted.Words, title))) {
            found.Tracks.push_back(track);
            found.Tracks.back().SourceIndex = static_cast<qint32>(i);
        }
    }
    return found;
}

void Search::ReplaceLibrary(std::vector<ArtistRecord> result) {
    const qint32 checked = m_summary.GetSelSongCount();
    m_result.ReplaceLibrary(std::move(result));
    if (m_summary.GetSelSongCount() < checked) {
        m_result.SetCheckedHidden();
    }
}

void Search::ShowResult() {
    if (m_library.Artists.empty()) {
        m_artistList.ShowNothing();
    } else {
        m_artistList.RebuildLists();
    }
    m_summary.CalculateSize(true);
    m_artistList.EnableCopy();
}
