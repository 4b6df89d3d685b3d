#include "tests/places/JobOnDisk.h"

#include "tests/support/ITunesDBWriter.h"

using namespace Qt::StringLiterals;

namespace {

/// What the user presses in each kind of message.
MessageAnswer AnswerTo(const ShownMessage& message) {
    switch (message.Buttons) {
    case MessageButtons::AbortRetryIgnore:
        return MessageAnswer::Ignore;
    case MessageButtons::RetryCancel:
        return MessageAnswer::Cancel;
    case MessageButtons::YesNo:
        return MessageAnswer::No;
    case MessageButtons::OK:
    case MessageButtons::OKCancel:
        break;
    }
    return MessageAnswer::OK;
}

} // namespace

JobOnDisk::JobOnDisk() {
    MakeFolder(Ipod("iPod_Control/iTunes"));
    MakeFolder(Music());
    MakeFolder(Destination());
    MakeFolder(World("private"));
    WriteFile(World("private/secret.mp3"), "secret");
    WriteFile(World("secret.mp3"), "secret");
    qputenv("SONGLIFT_DRIVES", Ipod().toUtf8());
    form.txtDestination.SetText(Destination());
    messages.WhileShown = [this](const ShownMessage& message) {
        messages.Answers.push_back(AnswerTo(message));
    };
    m_parts.Job.ShowOverwrite = [this] {
        prompted += m_parts.Prompt.OverwriteFile();
        m_parts.Prompt.Take(onPrompt, false);
    };
}

JobOnDisk::~JobOnDisk() {
    qunsetenv("SONGLIFT_DRIVES");
}

QString JobOnDisk::Music(const char* name) const {
    return Below(Ipod("iPod_Control/Music/F00"), name);
}

QString JobOnDisk::Below(const QString& folder, const char* name) {
    return *name == '\0' ? folder : folder + u'/' + Text(name);
}

SampleTrack& JobOnDisk::AddTrack(const QString& title, const QString& location, qint64 fileSize) {
    SampleTrack track;
    track.Artist = u"Artist"_s;
    track.Album = u"Album"_s;
    track.Title = title;
    track.FileSize = fileSize;
    track.Location = location;
    return tracks.emplace_back(track);
}

SampleTrack& JobOnDisk::AddSong(const QString& title, const QByteArray& bytes, qint64 fileSize) {
    const QByteArray name = QByteArray::number(static_cast<qlonglong>(tracks.size() + 1)) + ".mp3";
    WriteFile(Music(name.constData()), bytes);
    return AddTrack(title, u"F00/"_s + QString::fromLatin1(name), fileSize);
}

void JobOnDisk::Load() {
    WriteFile(Ipod("iPod_Control/iTunes/iTunesDB"), WriteITunesDB(tracks));
    m_parts.Loading.LoadITunesDB(u"E:"_s);
    MusicLibrary& library = m_parts.Loading.Library;
    ASSERT_EQ(library.TrackCount, static_cast<int>(tracks.size()));
    for (ArtistRecord& artist : library.Artists) {
        artist.Checked = true;
        for (AlbumRecord& album : artist.Albums) {
            album.Checked = true;
            for (TrackRecord& track : album.Tracks) {
                track.Checked = true;
            }
        }
    }
    // What the database says about lengths must not raise the question about free space.
    m_parts.Summary.SelectedSize = 0;
}

void JobOnDisk::Run() {
    Load();
    Press();
}

void JobOnDisk::Press() {
    messages.Shown.clear();
    m_before = ListTree(World(), Destination());
    form.cmdCopy.UserPress();
    EXPECT_FALSE(m_parts.Job.Copying);
}

QStringList JobOnDisk::MessagesShown() const {
    QStringList shown;
    for (const ShownMessage& message : messages.Shown) {
        shown += message.Title + u": "_s + message.Text;
    }
    return shown;
}

void JobOnDisk::ExpectRestUntouched() const {
    EXPECT_FALSE(m_before.isEmpty());
    EXPECT_EQ(ListTree(World(), Destination()), m_before);
}
