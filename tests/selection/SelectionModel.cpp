#include "tests/selection/SelectionModel.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

bool IsBlank(const QString& text) {
    return text.count(u' ') == text.size();
}

bool HoldsEveryWord(const QString& text, const QString& wordsText) {
    const QString lowered = text.toLower();
    const QStringList words = wordsText.toLower().split(u' ', Qt::SkipEmptyParts);
    return std::all_of(words.begin(), words.end(), [&lowered](const QString& word) {
        return lowered.indexOf(word, 0, Qt::CaseSensitive) >= 0;
    });
}

} // namespace

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
        ShowNarrowed(meanwhile);
    } else if (Search) {
        PressClear(meanwhile);
    }
}

void SelectionModel::PressClear(const std::optional<QString>& meanwhile) {
    SearchingText = false;
    SearchString.clear();
    ShowNarrowed(meanwhile);
}

void SelectionModel::ChooseTab(const QString& caption, const std::optional<QString>& meanwhile) {
    if (caption != Tab) {
        Tab = caption;
        ShowNarrowed(meanwhile);
    }
}

void SelectionModel::ShowNarrowed(const std::optional<QString>& meanwhile) {
    if (!Narrows()) {
        EndSearch();
        return;
    }
    Shown = Merged();
    if (meanwhile && *meanwhile != Box) {
        Box = SearchString = *meanwhile;
        SearchingText = !IsBlank(Box);
    }
    Search = true;
    Saved = Shown;
    Shown = Result();
    if (!Narrows()) {
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
    return Tab == "All Files"_L1 || (Tab == "Audio"_L1 && track.Kind == KindAudio) ||
           (Tab == "Video"_L1 && track.Kind == KindVideo);
}

std::vector<ArtistRecord> SelectionModel::Result() const {
    std::vector<ArtistRecord> result = Saved;
    for (size_t i = 0; i < result.size(); ++i) {
        ArtistRecord& artist = result[i];
        artist.SourceIndex = static_cast<qint32>(i);
        const bool artistMatches = HoldsEveryWord(artist.Name, SearchString);
        for (size_t j = 0; j < artist.Albums.size(); ++j) {
            AlbumRecord& album = artist.Albums[j];
            album.SourceIndex = static_cast<qint32>(j);
            const bool albumMatches = artistMatches || HoldsEveryWord(album.Name, SearchString);
            for (size_t k = 0; k < album.Tracks.size(); ++k) {
                album.Tracks[k].SourceIndex = static_cast<qint32>(k);
            }
            std::erase_if(album.Tracks, [&](const TrackRecord& track) {
                return !Passes(track) ||
                       (!albumMatches && !HoldsEveryWord(track.Title, SearchString));
            });
        }
        std::erase_if(artist.Albums, [](const AlbumRecord& album) { return album.Tracks.empty(); });
    }
    std::erase_if(result, [](const ArtistRecord& artist) { return artist.Albums.empty(); });
    return result;
}

void SelectionModel::SetTracks(const std::vector<TrackRecord*>& tracks, bool ticked) {
    const auto changed = [&tracks](const TrackRecord& track) {
        return std::find(tracks.begin(), tracks.end(), &track) != tracks.end();
    };
    for (TrackRecord* track : tracks) {
        track->Checked = ticked;
    }
    for (ArtistRecord& artist : Shown) {
        bool touched = false;
        for (AlbumRecord& album : artist.Albums) {
            if (std::any_of(album.Tracks.begin(), album.Tracks.end(), changed)) {
                touched = true;
                album.Checked = AnyTicked(album.Tracks);
            }
        }
        if (touched) {
            artist.Checked = AnyTicked(artist.Albums);
        }
    }
}
