#pragma once

#include "browser/ArtistList.h"
#include "browser/MediaFilter.h"
#include "platform/EventLoop.h"
#include "selection/SelectionSummary.h"

#include <QStringList>

/// What the user searches with, and what is disabled meanwhile.
struct SearchControls {
    Control& Picture2;
    TextControl& txtSearch;
    ButtonControl& cmdSearch;
    ButtonControl& cmdClear;
    TabsControl& tbsFilter;
};

/// Whether every blank-separated word of `FindText` occurs in `InText`, letter by letter.
bool SplitSearch(const QString& FindText, const QString& InText);

/// Narrows the lists to the records whose name holds every word typed and whose kind passes the
/// filter tab, and ends that again. The result takes the place of Artists until the full library is
/// put back.
class Search {
public:
    Search(const Browser& browser, SelectionSummary& summary, EventLoop& eventLoop,
           WindowManager& windowManager, const SearchControls& controls);

    /// The search is running: it yields, and neither library is whole meanwhile.
    bool SearchRunning() const { return m_searchRunning; }
    /// The text changed while the search was running: it must start again.
    bool SearchPending() const { return m_searchPending; }
    /// A text search is in force, for SearchString.
    bool SearchingText() const { return m_searchingText; }
    const QString& SearchString() const { return m_searchString; }

    /// Builds and shows the result for SearchString and the selected filter tab.
    void DoSearch();
    /// Shows what passes the filter tab that has just been chosen.
    void ShowFiltered();
    /// Whether the search box holds anything but blanks.
    bool AllowSearch() const;
    /// The way out for a handler that failed with the lists half changed: shows the full library
    /// from its records, unfiltered, with every list on its "All" row.
    void ShowLibraryAgain();
    /// Forgets everything about a library that leaves.
    void ResetState();
    /// Empties the box for the library of a device that has been chosen.
    void AwaitLibrary();
    /// Lets the user search the library that is shown now.
    void OfferSearch();
    /// Disables what searches.
    void ShowNoMusic();
    /// The same, and empties the box. Whatever fails, the rest is done.
    void ShowNoDevice();

    void cmdSearch_Click();
    void cmdClear_Click();
    void txtSearch_Change();
    void txtSearch_GotFocus();
    void txtSearch_LostFocus();
    void lblSearch_Click();

private:
    /// The lower-cased names of the full library, made once a library and not once a keystroke.
    struct LoweredAlbum {
        QString Name;
        /// All titles, parted by blanks: no word holds one, so what is not in here is in no title.
        QString Titles;
        /// Where in it each title ends.
        std::vector<qint32> Ends;
    };
    struct LoweredArtist {
        QString Name;
        std::vector<LoweredAlbum> Albums;
    };
    /// What is searched for.
    struct Wanted {
        QStringList Words;
        Filter Tab;
    };

    void LowerNames();
    void BeginSearch();
    void EndSearch();
    void RestartOnNewText();
    std::vector<ArtistRecord> BuildResult();
    std::vector<AlbumRecord> MatchingAlbums(const ArtistRecord& artist,
                                            const LoweredArtist& lowered, const Wanted& wanted,
                                            bool artistMatches);
    static AlbumRecord MatchingTracks(const AlbumRecord& album, const LoweredAlbum& lowered,
                                      const Wanted& wanted, bool albumMatches);
    void ReplaceLibrary(std::vector<ArtistRecord> result);
    void ShowResult();
    void ForgetText();
    bool IsAllFiles() const;

    MusicLibrary& m_library;
    LinkedLists& m_lists;
    SearchResult& m_result;
    ArtistList& m_artistList;
    SelectionSummary& m_summary;
    EventLoop& m_eventLoop;
    WindowManager& m_windowManager;
    SearchControls m_controls;
    std::vector<LoweredArtist> m_lowered;
    QString m_searchString;
    bool m_searchRunning = false;
    bool m_searchPending = false;
    bool m_searchingText = false;
};
