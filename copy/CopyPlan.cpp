#include "copy/CopyPlan.h"

#include "copy/Naming.h"
#include "platform/Paths.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The extension with its dot. A device's database can say anything, so it loses what would lead
/// out of the folder or what no file name can hold.
QString ExtensionOf(const QString& location) {
    QString extension = u'.' + Paths::Extension(location);
    extension.removeIf([](QChar c) { return u"/\\:*?\"<>|"_s.contains(c); });
    return extension;
}

/// Folders whose names differ only in letter case are one on many drives.
bool IsSameFolder(const QString& name, const QString& otherName) {
    return name.toLower() == otherName.toLower();
}

class Planner {
public:
    explicit Planner(const CopyOptions& options) : m_options(options) {}

    std::vector<PlannedTrack> Plan;

    void Add(const ArtistRecord& artist) {
        Enter(m_artist, artist.Name, m_options.ArtistFolder);
        for (const AlbumRecord& album : artist.Albums) {
            if (album.Checked) {
                Add(album);
            }
        }
    }

private:
    void Add(const AlbumRecord& album) {
        Enter(m_album, album.Name, m_options.AlbumFolder);
        QStringList folders;
        if (m_options.ArtistFolder) {
            folders += m_artist;
        }
        if (m_options.AlbumFolder) {
            folders += m_album;
        }
        for (const TrackRecord& track : album.Tracks) {
            if (track.Checked) {
                Plan.push_back({track, folders, NameOf(track), ExtensionOf(track.Location),
                                std::exchange(m_startsFolder, false)});
            }
        }
    }

    /// Goes on to the artist or album of that name.
    void Enter(QString& current, const QString& name, bool hasFolder) {
        const QString previous = std::exchange(current, MakeSafeName(name));
        if (hasFolder && !IsSameFolder(current, previous)) {
            m_startsFolder = true;
        }
    }

    QString NameOf(const TrackRecord& track) const {
        QString name = track.Title;
        if (m_options.TrackNumber && track.TrackNumber >= 1) {
            name = QString::number(track.TrackNumber).rightJustified(2, u'0') + u' ' + name;
        }
        if (m_options.AlbumName) {
            name = m_album + u" - "_s + name;
        }
        if (m_options.ArtistName) {
            name = m_artist + u" - "_s + name;
        }
        return MakeSafeName(name);
    }

    CopyOptions m_options;
    /// The safe names of the artist and the album at hand.
    QString m_artist, m_album;
    bool m_startsFolder = true;
};

} // namespace

std::vector<PlannedTrack> PlanCopy(const MusicLibrary& library, const CopyOptions& options) {
    Planner planner(options);
    if (library.TrackCount < 1) {
        return {}; // the records are those of an earlier device
    }
    for (const ArtistRecord& artist : library.Artists) {
        if (artist.Checked) {
            planner.Add(artist);
        }
    }
    return std::move(planner.Plan);
}
