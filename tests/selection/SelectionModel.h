#pragma once

#include "library/MusicLibrary.h"

#include <QString>

#include <algorithm>
#include <optional>
#include <vector>

template <class Records>
bool AnyTicked(const Records& records) {
    return std::any_of(records.begin(), records.end(),
                       [](const auto& record) { return record.Checked; });
}

/// What is found and what is ticked, told by the rules alone: without lists, without row tables and
/// without the code under test. A walk does each thing the user does here too and compares.
class SelectionModel {
public:
    explicit SelectionModel(std::vector<ArtistRecord> library) : Shown(std::move(library)) {}

    /// What the lists show: the library, or a result.
    std::vector<ArtistRecord> Shown;
    /// The library while a result is shown, with the marks it had when that was built; else empty.
    std::vector<ArtistRecord> Saved;

    bool Search = false;
    bool SearchingText = false;
    QString SearchString;
    QString Box;
    QString Tab = QStringLiteral("All Files");

    /// What the user does. `meanwhile` is what the search box is changed to while the search runs.
    void Type(const QString& text, const std::optional<QString>& meanwhile);
    void PressSearch(const std::optional<QString>& meanwhile);
    void PressClear(const std::optional<QString>& meanwhile);
    void ChooseTab(const QString& caption, const std::optional<QString>& meanwhile);

    /// Ticks or unticks tracks of Shown, and rolls that up.
    void SetTracks(const std::vector<TrackRecord*>& tracks, bool ticked);

    /// The whole library with the marks of today.
    std::vector<ArtistRecord> Merged() const;

private:
    bool Narrows() const { return SearchingText || Tab != QStringLiteral("All Files"); }
    void ShowNarrowed(const std::optional<QString>& meanwhile);
    void EndSearch();
    std::vector<ArtistRecord> Result() const;
    bool Passes(const TrackRecord& track) const;
};
