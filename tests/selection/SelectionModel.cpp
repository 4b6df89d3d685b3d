#include "tests/selection/SelectionModel.h"

#include <QStringList>

#include <algorithm>
#include <set>

namespace {

bool IsBlank(const QString& text) {
    return text.count(QLatin1Char(' ')) == text.size();
}

bool HoldsEveryWord(const QString& text, const QString& wordsText) {
    const QString lowered = text.toLower();
    const QStringList words = wordsText.toLower().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return std::all_of(words.begin(), words.end(), [&lowered](const QString& word) {
        return lowered.indexOf(word, 0, Qt::CaseSensitive) >= 0;
    });
}

template <class Records>
bool AnyTicked(const Records& records) {
    for (const auto& record : records) {
        if (record.Checked) {
            return true;
        }
    }
    return false;
}

} // namespace

SelectionModel::SelectionModel(std::vector<ArtistRecord> library) : Shown(std::move(library)) {
}

void SelectionModel::Type(const QString& text, const std::optional<QString>& meanwhile) {
    if (text != Box) {
        Box = text;
        PressSearch(meanwhile);
    }
}

void SelectionModel::PressSearch(const std::optional<QString>& meanwhile) {
    if (!IsBlank(Box)) {
        SearchingText = true;
        SearchString = Box;
        DoSearch(meanwhile);
    } else if (Search) {
        PressClear(meanwhile);
    }
}

void SelectionModel::PressClear(const std::optional<QString>& meanwhile) {
    SearchingText = false;
    SearchString.clear();
    if (Tab == QLatin1String("All Files")) {
        EndSearch();
    } else {
        DoSearch(meanwhile);
    }
}

void SelectionModel::ChooseTab(const QString& caption, const std::optional<QString>& meanwhile) {
    if (caption == Tab) {
        return;
    }
    Tab = caption;
    if (!SearchingText && Tab == QLatin1String("All Files")) {
        EndSearch();
    } else {
        DoSearch(meanwhile);
    }
}

void SelectionModel::DoSearch(const std::optional<QString>& meanwhile) {
    Shown = Merged();
    if (meanwhile && *meanwhile != Box) {
        Box = *meanwhile;
        SearchString = Box;
        SearchingText = !IsBlank(Box);
    }
    Search = true;
    Saved = Shown;
    Shown = Result();
    if (!SearchingText && Tab == QLatin1String("All Files")) {
        SearchString.clear();
        EndSearch();
    }
}

void SelectionModel::EndSearch() {
    Shown = Merged();
    Saved.clear();
    Search = false;
}

std::vector<ArtistRecord> SelectionModel::Merged() const {
    if (!Search) {
        return Shown;
    }
    std::vector<ArtistRecord> library = Saved;
    for (const ArtistRecord& shownArtist : Shown) {
        ArtistRecord& artist = library.at(shownArtist.SourceIndex);
        artist.Checked = shownArtist.Checked;
        for (const AlbumRecord& shownAlbum : shownArtist.Albums) {
            AlbumRecord& album = artist.Albums.at(shownAlbum.SourceIndex);
            album.Checked = shownAlbum.Checked;
            for (const TrackRecord& track : shownAlbum.Tracks) {
                album.Tracks.at(track.SourceIndex).Checked = track.Checked;
            }
        }
    }
    for (ArtistRecord& artist : library) {
        for (AlbumRecord& album : artist.Albums) {
            if (AnyTicked(album.Tracks)) {
                album.Checked = artist.Checked = true;
            }
        }
    }
    return library;
}

bool SelectionModel::Passes(const TrackRecord& track) const {
    return Tab == QLatin1String("All Files") ||
           (Tab == QLatin1String("Audio") && track.Kind == KindAudio) ||
           (Tab == QLatin1String("Video") && track.Kind == KindVideo);
}

std::vector<ArtistRecord> SelectionModel::Result() const {
    std::vector<ArtistRecord> result;
    for (size_t i = 0; i < Saved.size(); ++i) {
        ArtistRecord artist = Saved[i];
        artist.SourceIndex = static_cast<qint32>(i);
        artist.Albums.clear();
        const bool artistMatches = HoldsEveryWord(artist.Name, SearchString);
        for (size_t j = 0; j < Saved[i].Albums.size(); ++j) {
            AlbumRecord album = Saved[i].Albums[j];
            album.SourceIndex = static_cast<qint32>(j);
            const bool albumMatches = artistMatches || HoldsEveryWord(album.Name, SearchString);
            for (size_t k = 0; k < album.Tracks.size(); ++k) {
                album.Tracks[k].SourceIndex = static_cast<qint32>(k);
            }
            std::erase_if(album.Tracks, [&](const TrackRecord& track) {
                return !Passes(track) ||
                       (!albumMatches && !HoldsEveryWord(track.Title, SearchString));
            });
            if (!album.Tracks.empty()) {
                artist.Albums.push_back(album);
            }
        }
        if (!artist.Albums.empty()) {
            result.push_back(artist);
        }
    }
    return result;
}

void SelectionModel::SetTracks(const std::vector<TrackRecord*>& tracks, bool ticked) {
    const std::set<const TrackRecord*> changed(tracks.begin(), tracks.end());
    for (TrackRecord* track : tracks) {
        track->Checked = ticked;
    }
    for (ArtistRecord& artist : Shown) {
        bool touched = false;
        for (AlbumRecord& album : artist.Albums) {
            if (std::any_of(album.Tracks.begin(), album.Tracks.end(),
                            [&](const TrackRecord& track) { return changed.count(&track) > 0; })) {
                touched = true;
                album.Checked = AnyTicked(album.Tracks);
            }
        }
        if (touched) {
            artist.Checked = AnyTicked(artist.Albums);
        }
    }
}
