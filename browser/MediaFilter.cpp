#include "browser/MediaFilter.h"

bool CorrectFiletype(const TabsControl& tbsFilter, qint16 Filetype) {
    const QString tab = tbsFilter.SelectedCaption();
    return tab == AllFilesTab() || (Filetype == KindAudio && tab == QLatin1String("Audio")) ||
           (Filetype == KindVideo && tab == QLatin1String("Video"));
}

QString GetCorrectName(const TabsControl& tbsFilter) {
    const QString tab = tbsFilter.SelectedCaption();
    if (tab == AllFilesTab()) {
        return QStringLiteral(" Item");
    }
    if (tab == QLatin1String("Audio")) {
        return QStringLiteral(" Song");
    }
    return tab == QLatin1String("Video") ? QStringLiteral(" Video") : QString();
}

QString AllFilesTab() {
    return QStringLiteral("All Files");
}

MediaFilter::MediaFilter(BrowserState& state, const MusicLibrary& library,
                         const DeviceSelection& devices, ArtistList& artistList,
                         Form1Controls& controls)
    : m_state(state), m_library(library), m_devices(devices), m_artistList(artistList),
      m_controls(controls) {
}

void MediaFilter::tbsFilter_Click() {
    // Without tracks, Artists may still hold the records of an earlier device.
    if (m_devices.FilterLocked || m_library.TrackCount < 1) {
        return;
    }
    if (m_lastCaption.isEmpty()) {
        m_lastCaption = AllFilesTab();
    }
    const QString caption = m_controls.tbsFilter.SelectedCaption();
    if (caption == m_lastCaption) {
        return;
    }
    m_lastCaption = caption;
    if (!m_state.SearchingText && caption == AllFilesTab()) {
        const bool nothingShown = m_controls.lstArtists.ListCount() == 0;
        m_state.Search = false;
        m_artistList.Clear(nothingShown);
    } else {
        Raise(RunSearch);
    }
}

void MediaFilter::ResetState() {
    m_lastCaption.clear();
}
