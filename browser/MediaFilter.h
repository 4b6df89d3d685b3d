#pragma once

#include "library/MusicLibrary.h"
#include "platform/Controls.h"

#include <QStringList>

/// Which kinds of tracks are shown, according to the selected tab's caption. Under a tab with an
/// unknown caption nothing is shown.
enum class Filter { Unknown, AllFiles, Audio, Video };

/// The filter that the selected tab stands for.
Filter SelectedFilter(const TabsControl& tbsFilter);

/// Whether a track of this kind passes the filter.
bool CorrectFiletype(Filter filter, Kind Filetype);

/// The noun for the song list's "All" row under the filter, with a leading blank.
QString GetCorrectName(Filter filter);

/// The captions of the tabs, from left to right.
QStringList FilterTabs();

/// The tab strip that narrows the library to one kind of file.
class MediaFilter {
public:
    MediaFilter(const MusicLibrary& library, TabsControl& tbsFilter);

    /// Raised when another tab was chosen; whoever listens shows what passes the filter.
    Event FilterChanged;

    /// Clicks are ignored: code is selecting the first tab, or no device is chosen.
    bool FilterLocked() const { return m_filterLocked; }

    void tbsFilter_Click();
    /// Forgets the last tab that was acted on: a library that has just been loaded is shown
    /// unfiltered.
    void ResetState() { m_lastFilter = Filter::AllFiles; }
    /// Selects the first tab without starting a search, for the library of a device that was
    /// chosen.
    void AwaitLibrary();
    /// Selects the first tab, and stays locked until a device is chosen.
    void ShowNoDevice();

private:
    const MusicLibrary& m_library;
    TabsControl& m_tbsFilter;
    Filter m_lastFilter = Filter::AllFiles;
    bool m_filterLocked = false;
};
