#pragma once

#include "library/MusicLibrary.h"
#include "platform/Controls.h"

#include <QStringList>

/// Which kinds of tracks are shown. Its value is the selected tab's caption; under a tab of an
/// unknown caption nothing is.
enum class Filter { Unknown, AllFiles, Audio, Video };

/// The filter that the selected tab stands for.
Filter SelectedFilter(const TabsControl& tbsFilter);

/// Whether a track of this kind passes the filter.
bool CorrectFiletype(Filter filter, Kind Filetype);

/// What the song list's "All" row calls its items under the filter, with a leading blank.
QString GetCorrectName(Filter filter);

/// The captions of the tabs, in their order.
QStringList FilterTabs();

/// The tab strip that narrows the library to one kind of file.
class MediaFilter {
public:
    MediaFilter(const MusicLibrary& library, TabsControl& tbsFilter);

    /// Raised when another tab was chosen: the lists are to show what passes it.
    Event FilterChanged;

    /// A click does nothing: the first tab is being selected by code, or no device is chosen.
    bool FilterLocked() const { return m_filterLocked; }

    void tbsFilter_Click();
    /// Forgets the tab last acted on: a library that has just been loaded is shown unfiltered.
    void ResetState() { m_lastFilter = Filter::AllFiles; }
    /// Selects the first tab, without a search, for the library of a device that has been chosen.
    void AwaitLibrary();
    /// Selects the first tab, and stays locked until a device is chosen.
    void ShowNoDevice();

private:
    const MusicLibrary& m_library;
    TabsControl& m_tbsFilter;
    Filter m_lastFilter = Filter::AllFiles;
    bool m_filterLocked = false;
};
