// The steps of the copy job for one track.

#include "copy/CopyJob.h"

#include "copy/EnsureFolder.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"

#include <QElapsedTimer>

#include <algorithm>
#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Tracks above this many bytes are copied in chunks of this size.
constexpr qint32 LargeFileLimit = 50000000;

/// Where files take more milliseconds than this each, they are copied one by one, and the next one
/// is opened while the one before is copied.
constexpr qint64 Slow = 5;

/// At most this many files are named before their turn: about as many as are copied until the next
/// yield.
constexpr size_t MostAhead = 100;

} // namespace

CopyJob::Next CopyJob::CopyTrack(const PlannedTrack& planned) {
    const TrackRecord& track = planned.Track;
    if (planned.StartsFolder) {
        m_naming.ChangeFolder();
    }
    m_events.Yield();
    m_place.Source = track.Location;
    m_place.FileName.clear();
    Next next = m_cancelCopy ? StopRequest() : Next::SameTrack;
    while (next == Next::SameTrack) {
        next = CountTrack();
        if (next == Next::Step) {
            next = PutTrack(planned);
        }
    }
    if (next == Next::Step) {
        CopiedBytes += track.FileSize;
        m_copying = {};
    }
    return next;
}

/// Makes the folders of a track and puts its file there.
CopyJob::Next CopyJob::PutTrack(const PlannedTrack& planned) {
    const bool isSmall = planned.Track.FileSize <= LargeFileLimit;
    const bool staysInFolder = isSmall && planned.Folders == m_folderNamesOfLast;
    if (!staysInFolder) {
        if (const Next next = EnterFolders(planned.Folders); next != Next::Step) {
            return next;
        }
    }
    NameFile(planned);
    if (isSmall) {
        bool isSettled = false;
        const Next next = PutNewFile(planned, isSettled);
        if (isSettled || next != Next::Step) {
            return next;
        }
    }
    if (staysInFolder) { // which may be gone
        if (const Next next = EnterFolders(planned.Folders); next != Next::Step) {
            return next;
        }
    }
    return PutFile(planned.Track);
}

/// Puts a file into a folder that usually exists and holds no file of that name. `isSettled` is
/// false where this is not so and more has to be done.
CopyJob::Next CopyJob::PutNewFile(const PlannedTrack& planned, bool& isSettled) {
    bool isTaken = false;
    bool isNew = true;
    const auto copy = [&] { isNew = CopyNewFile(planned); };
    const Next next = CopyFile(planned.Track, Existing::Keep, copy, isTaken);
    isSettled = isNew && !isTaken;
    return next;
}

/// False where the file would replace something, or its folder is gone. The files that follow into
/// the same folder are copied in the same call, as many as fit in before the next yield is due: the
/// user could neither see nor stop anything in between. When their turn comes, they are there.
bool CopyJob::CopyNewFile(const PlannedTrack& planned) {
    if (m_copied.Count == 0 && !m_copied.Failure && !m_copied.IsRefused) {
        m_copied =
            m_files.CopyNewFiles(FilesToCopy(planned), m_events.MillisecondsToYield(), m_copying);
    }
    if (m_copied.Count > 0) {
        --m_copied.Count;
        return true;
    }
    const CopiedFiles none = std::exchange(m_copied, {});
    if (none.Failure) {
        std::rethrow_exception(none.Failure);
    }
    return false;
}

/// The file at hand, and those that may be copied together with it.
std::vector<FileToCopy> CopyJob::FilesToCopy(const PlannedTrack& planned) {
    std::vector<FileToCopy> files = {
        {planned.Track.Location, m_place.DestFolder + m_place.FileName}};
    if (m_events.MillisecondsToYield() == 0 || m_copyMilliseconds >= Slow) {
        return files;
    }
    m_ahead.clear();
    for (const PlannedTrack& next : m_following.first(std::min(m_following.size(), MostAhead))) {
        if (next.StartsFolder || next.Folders != planned.Folders ||
            next.Track.FileSize > LargeFileLimit) {
            break;
        }
        if (m_namesAhead.size() < static_cast<qsizetype>(files.size())) {
            m_namesAhead += m_naming.MakeFileName(next.Name, next.Extension);
        }
        const QString& name = m_namesAhead[static_cast<qsizetype>(files.size()) - 1];
        files.push_back({next.Track.Location, m_place.DestFolder + name});
        m_fileSize += next.Track.FileSize;
    }
    return files;
}

CopyJob::Next CopyJob::CountTrack() {
    const Next next = Step([this] { m_fileIndex = ToInteger(m_fileIndex + 1.0); });
    if (next != Next::Step) {
        return next;
    }
    m_shownBytes = std::max(m_shownBytes, CopiedBytes);
    m_controls.prgCopy.SetValue(static_cast<float>(m_shownBytes));
    const QString text = u"Copying files... "_s + QString::number(m_fileIndex) + u" of "_s +
                         QString::number(m_fileTotal);
    m_controls.lblMessage.SetCaption(text);
    if (m_controls.Form1.Minimized()) {
        m_controls.Form1.SetCaption(text);
    }
    return Next::Step;
}

/// Makes the track's folders where they are missing. A failure that is ignored leaves its folder
/// out.
CopyJob::Next CopyJob::EnterFolders(const QStringList& names) {
    m_folderNamesOfLast.reset();
    QString folder = m_destRoot;
    QStringList folders;
    for (const QString& name : names) {
        folders += folder + m_folderNames.NameFor(folder, name);
        folder = Paths::WithSeparator(folders.last());
    }
    // A failure's message names the folder; a file that is copied again keeps its name.
    const QString fileName = m_place.FileName;
    bool isEntered = false;
    for (qsizetype made = 0; !isEntered; ++made) {
        const Next next = Step([&] {
            EnterFolder(folder, folders, made);
            isEntered = true;
        });
        m_place.FileName = fileName;
        if (next != Next::Step) {
            return next;
        }
    }
    m_place.DestFolder = folder;
    m_folderNamesOfLast = names;
    return Next::Step;
}

/// Makes `missing` from the one at `made` on, which stands at the one that failed afterwards; then
/// removes what a killed job has left in `folder`, even if all its files are going to be skipped,
/// and asks what names it can hold. All in one go, since each wait for the disk costs time.
void CopyJob::EnterFolder(const QString& folder, const QStringList& missing, qsizetype& made) {
    const bool isOther = folder != m_enteredFolder;
    if (missing.size() == made && !isOther) {
        return;
    }
    struct Entered {
        qsizetype Made;
        NameLimits Limits = {};
    };
    const auto entered = std::make_shared<Entered>(Entered{made});
    try {
        // Every attempt looks again for the folder that failed: a disk that is back may have it.
        m_files.Do([=](FileSystem& files) {
            for (; entered->Made < missing.size(); ++entered->Made) {
                EnsureFolder(files, missing[entered->Made]);
            }
            if (isOther) {
                files.RemoveLeftovers(folder);
                entered->Limits = files.LimitsOf(folder);
            }
        });
    } catch (const std::exception&) {
        made = entered->Made;
        m_place.FileName = Paths::FileName(missing[made]);
        m_place.DestFolder = missing[made].chopped(m_place.FileName.size());
        throw;
    }
    if (isOther) {
        m_enteredFolder = folder;
        m_naming.FitTo(entered->Limits);
    }
}

void CopyJob::NameFile(const PlannedTrack& planned) {
    if (!m_place.FileName.isEmpty()) {
        return; // the same track again: a second name would make a second file of it
    }
    m_place.FileName = m_namesAhead.isEmpty()
                           ? m_naming.MakeFileName(planned.Name, planned.Extension)
                           : m_namesAhead.takeFirst();
}

/// Puts the track's file in its place, unless the user wants to keep one that is there. The user is
/// asked also about one that another program has put there meanwhile.
CopyJob::Next CopyJob::PutFile(const TrackRecord& track) {
    const QString target = m_place.DestFolder + m_place.FileName;
    Existing existing = Existing::Keep;
    bool isTaken = m_files.WouldReplace(target);
    while (true) {
        if (isTaken) {
            AskToReplace(target);
            if (m_prompt.OverwriteAnswer() == OverwritePrompt::Cancel) {
                return StopRequest();
            }
            if (m_prompt.OverwriteAnswer() == OverwritePrompt::Skip) {
                return Next::Step;
            }
            existing = Existing::Replace;
        }
        const Next next = CopyFile(
            track, existing, [&] { CopyBytes(track, target, existing); }, isTaken);
        if (!isTaken) {
            return next;
        }
    }
}

/// Leaves the user's answer in the prompt: a new one, or the one given for all files.
void CopyJob::AskToReplace(const QString& target) {
    if (!m_prompt.OverwriteAll()) {
        FlashUnlessActive(m_windowManager, m_controls.Form1.Handle());
        m_prompt.AskAbout(target);
        Raise(ShowOverwrite);
    }
}

/// `isTaken` tells afterwards whether a file is in the way that the user was not asked about.
CopyJob::Next CopyJob::CopyFile(const TrackRecord& track, Existing existing, const Event& copy,
                                bool& isTaken) {
    const bool isCopied = m_copied.Count > 0;
    const Next next = Step([&] {
        isTaken = false;
        m_copying = {};
        m_fileSize = track.FileSize;
        try {
            QElapsedTimer clock;
            clock.start();
            copy();
            if (!isCopied) {
                const auto count = static_cast<qint64>(m_copied.Count) + 1;
                m_copyMilliseconds = clock.elapsed() / count;
            }
        } catch (const RuntimeError& error) {
            isTaken = existing == Existing::Keep && error.Number == ErrorNumber::FileAlreadyExists;
            if (!isTaken) {
                throw;
            }
        }
    });
    if (next != Next::Leave && m_stop == Next::Leave) {
        return LeaveFile();
    }
    return m_stop == Next::SameTrack ? next : m_stop;
}

void CopyJob::CopyBytes(const TrackRecord& track, const QString& target, Existing existing) {
    if (track.FileSize <= LargeFileLimit) {
        m_files.CopyFile(track.Location, target, existing, m_copying);
    } else {
        const QString base = Paths::WithSeparator(m_destRoot + u"tmp"_s);
        m_chunkedCopy.NewCopy(track.Location, target, base, LargeFileLimit, existing, m_copying);
    }
}

bool CopyJob::AfterChunk(qint64 done) {
    ShowBytes(done);
    m_events.Yield();
    return MayGoOn();
}

/// Inside a file the question to quit is asked at once: after "No" a film goes on where it was.
bool CopyJob::MayGoOn() {
    return !m_cancelCopy || AskToStop() == Next::SameTrack;
}

/// Called while the job waits for its files; returns whether to wait on.
bool CopyJob::MayWait() {
    m_events.Yield();
    if (m_stop != Next::SameTrack) {
        return !m_clearUp.hasExpired();
    }
    ShowBytes(m_copying.BytesDone());
    ReadNextAhead();
    return MayGoOn();
}

/// Once most of a file is there: earlier, a disk would have to go to and fro between the two.
void CopyJob::ReadNextAhead() {
    if (!m_ahead.isEmpty() && m_copying.BytesDone() > m_fileSize / 2) {
        m_files.ReadAhead(std::exchange(m_ahead, QString()));
    }
}

/// Moves the bar, but never back: bytes that are copied again were shown before, and a file may be
/// larger than the database says.
void CopyJob::ShowBytes(qint64 done) {
    const double bytes = CopiedBytes + static_cast<double>(std::min(done, m_fileSize));
    if (bytes > m_shownBytes) {
        m_shownBytes = bytes;
        m_controls.prgCopy.SetValue(static_cast<float>(bytes));
    }
}
