#pragma once

#include "browser/ArtistList.h"
#include "library/DeviceSelection.h"

/// Whether a track of this kind passes the selected filter tab.
bool CorrectFiletype(const TabsControl& tbsFilter, qint16 Filetype);

/// What the song list's "All" row calls its items under the selected tab, with a leading blank.
QString GetCorrectName(const TabsControl& tbsFilter);

/// The caption of the tab that filters nothing.
QString AllFilesTab();

/// The tab strip that narrows the library to one kind of file.
class MediaFilter {
public:
    MediaFilter(BrowserState& state, const MusicLibrary& library, const DeviceSelection& devices,
                ArtistList& artistList, Form1Controls& controls);

    /// Raised when the result for the new tab must be built.
    Event RunSearch;

    void tbsFilter_Click();
    /// Forgets the tab last acted on: a library that has just been loaded is shown unfiltered.
    void ResetState();

private:
    BrowserState& m_state;
    const MusicLibrary& m_library;
    const DeviceSelection& m_devices;
    ArtistList& m_artistList;
    Form1Controls& m_controls;
    QString m_lastCaption;
};
