#pragma once

#include "browser/SearchResult.h"
#include "library/MusicLibrary.h"
#include "platform/Controls.h"

/// Where the sizes are shown.
struct SummaryControls {
    LabelControl& lblMessage;
    ProgressControl& prgCopy;
};

/// Counts and sizes of what is ticked, and the summary line and bar that show them.
class SelectionSummary {
public:
    SelectionSummary(const SearchResult& result, const MusicLibrary& library,
                     const SummaryControls& controls);

    /// Bytes of all ticked tracks of the whole library, including those hidden by a search.
    double SelectedSize = 0;
    /// Bytes of the ticked tracks inside the current search result, as last computed.
    double SearchBaseSize = 0;

    /// Number of ticked tracks in Artists, whatever the filter shows.
    qint32 GetSelSongCount() const;
    /// Recomputes the sizes and shows them. With `GetSearchTFS` only SearchBaseSize changes.
    void CalculateSize(bool GetSearchTFS);
    /// Forgets the sizes of the library that was shown, and empties the bar that showed them.
    void ResetState();

private:
    double CheckedSize() const;

    const SearchResult& m_result;
    const MusicLibrary& m_library;
    SummaryControls m_controls;
};

/// A byte count as text, in binary units: "3 KB", "1.5 MB", "2.99 GB".
QString GetSizeInText(double Bytes);
