#pragma once

#include "browser/ArtistList.h"
#include "platform/EventLoop.h"
#include "selection/SelectionSummary.h"

#include <QStringList>

/// Whether every blank-separated word of `FindText` occurs in `InText`, letter by letter.
bool SplitSearch(const QString& FindText, const QString& InText);

/// Narrows the lists to the records whose name holds every word typed and whose kind passes the
/// filter tab. The result takes the place of Artists until ArtistList::Clear puts the full library
/// back.
class Search {
public:
    Search(BrowserState& state, MusicLibrary& library, ArtistList& artistList,
           SelectionSummary& summary, EventLoop& eventLoop, WindowManager& windowManager,
           Form1Controls& controls);

    /// Builds and shows the result for SearchString and the selected filter tab.
    void DoSearch();
    /// Whether the search box holds anything but blanks.
    bool AllowSearch() const;
    /// Forgets the names of a library that leaves.
    void ResetState();

    void cmdSearch_Click();
    void txtSearch_Change();
    void txtSearch_GotFocus();
    void txtSearch_LostFocus();
    void lblSearch_Click();

private:
    /// The lower-cased names of the full library, made once a library and not once a keystroke.
    struct LoweredAlbum {
        QString Name;
        std::vector<QString> Titles;
    };
    struct LoweredArtist {
        QString Name;
        std::vector<LoweredAlbum> Albums;
    };

    void LowerNames();
    void BeginSearch();
    void EndSearch();
    void RestartOnNewText();
    std::vector<ArtistRecord> BuildResult();
    ArtistRecord MatchingAlbums(const ArtistRecord& artist, const LoweredArtist& lowered,
                                const QStringList& words, bool artistMatches);
    AlbumRecord MatchingTracks(const AlbumRecord& album, const LoweredAlbum& lowered,
                               const QStringList& words, bool albumMatches) const;
    void ReplaceLibrary(std::vector<ArtistRecord> result);
    void ShowResult();

    BrowserState& m_state;
    MusicLibrary& m_library;
    ArtistList& m_artistList;
    SelectionSummary& m_summary;
    EventLoop& m_eventLoop;
    WindowManager& m_windowManager;
    Form1Controls& m_controls;
    std::vector<LoweredArtist> m_lowered;
};
