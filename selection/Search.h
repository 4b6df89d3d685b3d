#pragma once

#include "browser/ArtistList.h"
#include "browser/MediaFilter.h"
#include "platform/EventLoop.h"
#include "selection/SelectionSummary.h"

#include <QStringList>

/// The controls that the user searches with, and those that are disabled while a search runs.
struct SearchControls {
    Control& Picture2;
    TextControl& txtSearch;
    ButtonControl& cmdSearch;
    ButtonControl& cmdClear;
    TabsControl& tbsFilter;
};

/// Whether every blank-separated word of `FindText` occurs in `InText`; case matters. A search
/// finds by the same rule, in names that it has lowered and words that it has split once.
bool SplitSearch(const QString& FindText, const QString& InText);

/// Narrows the lists to the records whose name holds every word typed and whose kind passes the
/// filter tab, and ends such a search. The result replaces Artists until the full library is put
/// back.
class Search {
public:
    Search(const Browser& browser, SelectionSummary& summary, EventLoop& eventLoop,
           WindowManager& windowManager, const SearchControls& controls);

    /// A search is running: it yields, and neither library is complete meanwhile.
    bool SearchRunning() const { return m_searchRunning; }
    /// The text changed while the search was running: it must start again.
    bool SearchPending() const { return m_searchPending; }
    /// A text search is in force, for SearchString.
    bool SearchingText() const { return m_searchingText; }
    const QString& SearchString() const { return m_searchString; }

    /// Builds and shows the result for SearchString and the selected filter tab.
    void DoSearch();
    /// Shows what passes the selected filter tab and the text search, if one is in force.
    void ShowFiltered();
    /// Whether the search box holds anything but blanks.
    bool AllowSearch() const;
    /// For a handler that failed while the lists were half changed: shows the full library from its
    /// records, unfiltered, with every list on its "All" row.
    void ShowLibraryAgain();
    /// Forgets everything about the library that was shown.
    void ResetState();
    /// Empties the box for the library of a device that has been chosen.
    void AwaitLibrary();
    /// Lets the user search the library that is shown now.
    void OfferSearch();
    /// Disables the controls that the user searches with.
    void ShowNoMusic();
    /// The same, and empties the box. A step that fails does not stop the others.
    void ShowNoDevice();

    void cmdSearch_Click();
    void cmdClear_Click();
    void txtSearch_Change();
    void txtSearch_GotFocus();
    void txtSearch_LostFocus();
    void lblSearch_Click();

private:
    /// The lower-cased names of the full library, made once per library and not at each keystroke.
    struct LoweredAlbum {
        QString Name;
        /// All titles, separated by blanks. No word holds a blank, so a word that is not in here is
        /// in no title.
        QString Titles;
        /// Where each title ends in it.
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
