// The steps of the copy job for one track.

#include "copy/CopyJob.h"

#include "platform/Numbers.h"
#include "platform/Paths.h"

#include <utility>

namespace {

/// Tracks above this many bytes are copied in chunks of this size.
constexpr qint32 LargeFileLimit = 50000000;

/// The extension with its dot. A device's database can say anything; what would lead out of the
/// folder, or is part of no file name, is dropped.
QString ExtensionOf(const QString& location) {
    QString extension = QLatin1Char('.') + Paths::Extension(location);
    extension.removeIf([](QChar c) { return QStringView(u"/\\:*?\"<>|").contains(c); });
    return extension;
}

} // namespace

CopyJob::Next CopyJob::CopyTrack(const TrackRecord& track) {
    m_events.Yield();
    m_place.Source = track.Location;
    m_place.FileName.clear();
    Next next = CancelCopy ? StopRequest() : Next::SameTrack;
    while (next == Next::SameTrack) {
        next = CountTrack();
        if (next == Next::Step) {
            next = MakeFolders();
        }
        if (next == Next::Step) {
            ClearFolder();
            NameFile(track);
            next = PutFile(track);
        }
    }
    if (next == Next::Step) {
        CopiedBytes += track.FileSize;
    }
    return next;
}

CopyJob::Next CopyJob::CountTrack() {
    const Next next = Step([this] { m_fileIndex = ToInteger(m_fileIndex + 1.0); });
    if (next != Next::Step) {
        return next;
    }
    m_controls.prgCopy.SetValue(static_cast<float>(CopiedBytes));
    const QString text = QStringLiteral("Copying files... ") + QString::number(m_fileIndex) +
                         QStringLiteral(" of ") + QString::number(m_fileTotal);
    m_controls.lblMessage.SetCaption(text);
    if (m_controls.Form1.Minimized()) {
        m_controls.Form1.SetCaption(text);
    }
    return Next::Step;
}

CopyJob::Next CopyJob::MakeFolders() {
    m_place.DestFolder = m_destRoot;
    const Next next = MakeFolder(m_controls.chkArtist, m_artistFolder);
    return next == Next::Step ? MakeFolder(m_controls.chkAlbum, m_albumFolder) : next;
}

/// Goes one folder deeper where its option is ticked, and makes that folder if it is missing.
CopyJob::Next CopyJob::MakeFolder(const CheckControl& option, const QString& name) {
    if (option.Value() != 1) {
        return Next::Step;
    }
    const QString folder = m_place.DestFolder + name;
    // A failure names the folder that is being made; a file that is copied once more keeps its name.
    const QString fileName = std::exchange(m_place.FileName, name);
    // Looked for again by every attempt: a disk that comes back may bring the folder along.
    const Next next = Step([&] {
        if (!m_files.FolderExists(folder)) {
            CreateFolder(folder);
        }
    });
    m_place.FileName = fileName;
    if (next != Next::Step) {
        return next;
    }
    m_place.DestFolder = Paths::WithSeparator(folder);
    return Next::Step;
}

/// That somebody else has made it in the same instant is no error.
void CopyJob::CreateFolder(const QString& folder) {
    try {
        m_files.CreateFolder(folder);
    } catch (const RuntimeError& error) {
        if (error.Number != ErrorNumber::FileAlreadyExists) {
            throw;
        }
    }
}

/// Removes what a killed job has left in the folder of the track at hand, also where all its files
/// are going to be skipped.
void CopyJob::ClearFolder() {
    if (m_place.DestFolder != m_clearedFolder) {
        m_clearedFolder = m_place.DestFolder;
        m_files.RemoveLeftovers(m_clearedFolder);
    }
}

void CopyJob::NameFile(const TrackRecord& track) {
    if (!m_place.FileName.isEmpty()) {
        return; // the same track once more: a second name would make a second file of it
    }
    QString name = track.Title;
    if (m_controls.chkTrackNum.Value() == 1 && track.TrackNumber >= 1) {
        name = QString::number(track.TrackNumber).rightJustified(2, QLatin1Char('0')) +
               QLatin1Char(' ') + name;
    }
    if (m_controls.chkAlbumName.Value() == 1) {
        name = m_albumFolder + QStringLiteral(" - ") + name;
    }
    if (m_controls.chkArtistName.Value() == 1) {
        name = m_artistFolder + QStringLiteral(" - ") + name;
    }
    m_place.FileName = m_naming.MakeSafeName(name, true, ExtensionOf(track.Location));
}

/// Puts the track's file in its place, unless the user wants to keep one that is there.
CopyJob::Next CopyJob::PutFile(const TrackRecord& track) {
    const QString target = m_place.DestFolder + m_place.FileName;
    if (m_files.FileExists(target)) {
        if (!m_prompt.OverwriteAll) {
            FlashUnlessActive(m_windowManager, m_controls.Form1.Handle());
            m_prompt.OverwriteFile = target;
            Raise(ShowOverwrite);
        }
        if (m_prompt.OverwriteAnswer == OverwritePrompt::Cancel) {
            return StopRequest();
        }
        if (m_prompt.OverwriteAnswer == OverwritePrompt::Skip) {
            return Next::Step;
        }
    }
    return CopyFile(track, target);
}

CopyJob::Next CopyJob::CopyFile(const TrackRecord& track, const QString& target) {
    if (track.FileSize <= LargeFileLimit) {
        return Step([&] { m_files.CopyFile(track.Location, target); });
    }
    const QString base = Paths::WithSeparator(m_destRoot + QStringLiteral("tmp"));
    bool copied = true;
    const Next next =
        Step([&] { copied = m_chunkedCopy.NewCopy(track.Location, target, base, LargeFileLimit); });
    // A stop asked for during a large file is a stop request like any other, so that a window
    // closed meanwhile gets its question.
    if (copied) {
        return next;
    }
    if (CUnload) {
        // A window that closes now leaves no half of a large file behind.
        ErrorAnswer answer;
        Try([this] { DeleteTemporaryFolder(); }, answer);
    }
    return StopRequest();
}
