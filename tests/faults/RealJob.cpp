#include "tests/faults/RealJob.h"

#include "platform/linux/LinuxCopy.h"
#include "tests/platform/LinuxFixture.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

QStringList PathsBelow(const QString& folder, QDir::Filters filters) {
    QStringList paths;
    QDirIterator below(folder, filters, QDirIterator::Subdirectories);
    while (below.hasNext()) {
        paths += below.next();
    }
    paths.sort();
    return paths;
}

void Add(std::map<QString, QByteArray>& files, const QString& path, const QByteArray& bytes) {
    MakeFolder(QFileInfo(path).path());
    WriteFile(path, bytes);
    files[path] = bytes;
}

bool Holds(const std::map<QString, QByteArray>& files, const QString& path,
           const QByteArray& bytes) {
    const auto found = files.find(path);
    return found != files.end() && found->second == bytes;
}

} // namespace

JobFolders::JobFolders(const QString& work)
    : Device(work + u"/DEVICE"_s), Destination(work + u"/copied"_s) {
    MakeFolder(Device + u"/iPod_Control/Music/F00"_s);
    MakeFolder(Destination);
}

TrackRecord& JobFolders::AddTrack(const char* artist, const char* album, const char* title,
                                  const QByteArray& bytes) {
    auto& artists = Library.Artists;
    if (artists.empty() || artists.back().Name != Text(artist)) {
        artists.push_back({Text(artist), {}, true, 0});
    }
    auto& albums = artists.back().Albums;
    if (albums.empty() || albums.back().Name != Text(album)) {
        albums.push_back({Text(album), {}, true, 0});
    }
    TrackRecord track;
    track.Title = Text(title);
    track.Checked = true;
    track.FileSize = static_cast<qint32>(bytes.size());
    ++Library.TrackCount;
    track.Location =
        u"\\iPod_Control\\Music\\F00\\"_s + QString::number(Library.TrackCount) + u".mp3"_s;
    WriteFile(FileOf(track), bytes);
    Wanted[u"%1/%2/%3/%4.mp3"_s.arg(Destination, Text(artist), Text(album), Text(title))] = bytes;
    albums.back().Tracks.push_back(track);
    return albums.back().Tracks.back();
}

TrackRecord& JobFolders::AddFilm(const char* artist, const char* album, const char* title,
                                 const QByteArray& bytes) {
    TrackRecord& film = AddTrack(artist, album, title, bytes);
    film.FileSize = std::max(film.FileSize, 50000001);
    return film;
}

void JobFolders::AddOld(const QString& path, const QByteArray& bytes) {
    Add(Old, path, bytes);
}

void JobFolders::AddOwn(const QString& path, const QByteArray& bytes) {
    Add(Own, path, bytes);
}

void JobFolders::AddLeft(const QString& path, const QByteArray& bytes) {
    Add(Left, path, bytes);
}

QString JobFolders::FileOf(const TrackRecord& track) const {
    QString below = track.Location.mid(track.Location.indexOf(u'\\'));
    return Device + below.replace(u'\\', u'/');
}

QStringList JobFolders::DeviceState() const {
    QStringList entries;
    for (const QString& path : PathsBelow(Device, Everything)) {
        struct stat info {};
        EXPECT_EQ(lstat(path.toUtf8().constData(), &info), 0);
        entries += u"%1 %2 %3.%4"_s.arg(path)
                       .arg(info.st_size)
                       .arg(info.st_ctim.tv_sec)
                       .arg(info.st_ctim.tv_nsec);
    }
    return entries;
}

void JobFolders::ExpectWholeFilesOnly(Leftovers allowed) const {
    for (const QString& path : PathsBelow(Destination, QDir::Files | QDir::Hidden | QDir::System)) {
        const bool isLeftover =
            path.endsWith(u"/"_s + Text(PartName)) || path.startsWith(Destination + u"/tmp/"_s);
        const QByteArray bytes = ReadFile(path);
        if (isLeftover) {
            EXPECT_NE(allowed, Leftovers::None) << qPrintable(path);
            EXPECT_TRUE(allowed == Leftovers::Any || Holds(Left, path, bytes)) << qPrintable(path);
            continue;
        }
        EXPECT_TRUE(Holds(Wanted, path, bytes) || Holds(Old, path, bytes) ||
                    Holds(Own, path, bytes))
            << qPrintable(path) << ", " << bytes.size() << " bytes";
    }
    for (const auto* kept : {&Old, &Own}) {
        for (const auto& [path, bytes] : *kept) {
            EXPECT_TRUE(IsThere(path)) << qPrintable(path);
        }
    }
}

void JobFolders::ExpectAllCopied() const {
    QStringList expected;
    for (const auto* kept : {&Wanted, &Own}) {
        for (const auto& [path, bytes] : *kept) {
            expected += path;
            EXPECT_TRUE(IsThere(path) && ReadFile(path) == bytes) << qPrintable(path);
        }
    }
    expected.sort();
    EXPECT_EQ(PathsBelow(Destination, QDir::Files | QDir::Hidden | QDir::System), expected);
    EXPECT_FALSE(IsThere(Destination + u"/tmp"_s));
}

RealJob::RealJob(const JobFolders& folders, Worker* otherWorker, Worker* otherAhead)
    : worker(otherWorker != nullptr ? *otherWorker : inlineWorker),
      ahead(otherAhead != nullptr ? *otherAhead : inlineWorker) {
    events.ToYield = 10;
    library = folders.Library;
    qputenv("SONGLIFT_DRIVES", folders.Device.toUtf8());
    QString root;
    for (const Drive& drive : drives.Drives()) {
        if (drives.VolumeName(drive) == u"DEVICE"_s) {
            root = drive.Path;
        }
    }
    for (ArtistRecord& artist : library.Artists) {
        for (AlbumRecord& album : artist.Albums) {
            for (TrackRecord& track : album.Tracks) {
                track.Location.prepend(root);
                library.TotalSize += track.FileSize;
                summary.SelectedSize += track.FileSize;
            }
        }
    }
    form.txtDestination.SetText(folders.Destination);
    form.chkArtist.SetValue(true);
    form.chkAlbum.SetValue(true);
    form.cmdClear.SetEnabled(false);
    form.Form1.QueryUnload = [this](bool& cancel, UnloadMode) { cancel = job.StopToClose(); };
    job.ShowOverwrite = [this] {
        prompted += prompt.OverwriteFile();
        prompt.Take(overwriteAnswer, false);
    };
}

RealJob::~RealJob() {
    qunsetenv("SONGLIFT_DRIVES");
}

void RealJob::Press() {
    form.cmdCopy.UserPress();
}

void RealJob::AnswerBy(Policy policy) {
    messages.WhileShown = [this, policy](const ShownMessage& message) {
        MessageAnswer answer = MessageAnswer::OK;
        if (message.Buttons == MessageButtons::AbortRetryIgnore) {
            answer = policy == Policy::Retry    ? MessageAnswer::Retry
                     : policy == Policy::Ignore ? MessageAnswer::Ignore
                                                : MessageAnswer::Abort;
        } else if (message.Buttons == MessageButtons::RetryCancel) {
            answer = policy == Policy::Retry ? MessageAnswer::Retry : MessageAnswer::Cancel;
        } else if (message.Buttons == MessageButtons::YesNo) {
            answer = MessageAnswer::No;
        }
        messages.Answers = {answer};
    };
}

bool RealJob::IsCompleted() const {
    return messages.Texts().contains(u"Copy completed!"_s);
}

void RealJob::ExpectIdle() const {
    EXPECT_FALSE(job.Copying);
    EXPECT_FALSE(job.CancelCopy());
    EXPECT_EQ(form.Form1.Caption(), u"Songlift"_s);
    EXPECT_TRUE(form.lstArtists.Enabled());
    EXPECT_TRUE(form.txtDestination.Enabled());
}
