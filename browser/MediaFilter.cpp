#include "browser/MediaFilter.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const std::array<std::pair<Filter, QString>, 3>& Captions() {
    static const std::array<std::pair<Filter, QString>, 3> captions = {
        {{Filter::AllFiles, u"All Files"_s},
         {Filter::Audio, u"Audio"_s},
         {Filter::Video, u"Video"_s}}};
    return captions;
}

} // namespace

Filter SelectedFilter(const TabsControl& tbsFilter) {
    const QString caption = tbsFilter.SelectedCaption();
    const auto found = std::find_if(Captions().begin(), Captions().end(),
                                    [&](const auto& tab) { return tab.second == caption; });
    return found == Captions().end() ? Filter::Unknown : found->first;
}

bool CorrectFiletype(Filter filter, Kind Filetype) {
    return filter == Filter::AllFiles || (filter == Filter::Audio && Filetype == KindAudio) ||
           (filter == Filter::Video && Filetype == KindVideo);
}

QString GetCorrectName(Filter filter) {
    switch (filter) {
    case Filter::AllFiles:
        return u" Item"_s;
    case Filter::Audio:
        return u" Song"_s;
    case Filter::Video:
        return u" Video"_s;
    case Filter::Unknown:
        break;
    }
    return {};
}

QStringList FilterTabs() {
    QStringList tabs;
    for (const auto& tab : Captions()) {
        tabs.append(tab.second);
    }
    return tabs;
}

MediaFilter::MediaFilter(const MusicLibrary& library, TabsControl& tbsFilter)
    : m_library(library), m_tbsFilter(tbsFilter) {
}

void MediaFilter::AwaitLibrary() {
    ShowNoDevice();
    m_filterLocked = false;
}

void MediaFilter::ShowNoDevice() {
    m_filterLocked = true;
    m_tbsFilter.Select(0);
}

void MediaFilter::tbsFilter_Click() {
    // Without tracks, Artists may still hold the records of an earlier device.
    if (m_filterLocked || m_library.TrackCount < 1) {
        return;
    }
    const Filter filter = SelectedFilter(m_tbsFilter);
    if (std::exchange(m_lastFilter, filter) != filter) {
        Raise(FilterChanged);
    }
}
