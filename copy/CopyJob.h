#pragma once

#include "copy/ChunkedCopy.h"
#include "copy/ControlLock.h"
#include "copy/CopyErrors.h"
#include "copy/CopyPlan.h"
#include "copy/Destination.h"
#include "copy/FolderNames.h"
#include "copy/Naming.h"
#include "copy/OverwritePrompt.h"
#include "platform/EventLoop.h"
#include "platform/Messages.h"
#include "platform/PatientFileSystem.h"
#include "platform/WindowManager.h"
#include "selection/Search.h"

#include <QDeadlineTimer>

#include <optional>
#include <span>
#include <vector>

/// What the job needs of the platform.
struct CopyServices {
    PatientFileSystem& Files;
    Messages& MessageBoxes;
    EventLoop& Events;
    WindowManager& Windows;
};

/// What there is to copy: the library, the result that may stand in its place, and the sizes.
struct CopyLibrary {
    MusicLibrary& Library;
    SearchResult& Result;
    const Search& WordSearch;
    SelectionSummary& Summary;
};

/// The options and the destination, the button, and where the job tells how far it is.
struct CopyControls {
    Window& Form1;
    CheckControl& chkArtist;
    CheckControl& chkAlbum;
    CheckControl& chkArtistName;
    CheckControl& chkAlbumName;
    CheckControl& chkTrackNum;
    TextControl& txtDestination;
    ButtonControl& cmdCopy;
    ProgressControl& prgCopy;
    LabelControl& lblMessage;
    LockedControls Locked;
};

/// Copies every ticked track of the library into the destination folder. The job runs inside the
/// click that starts it and yields to the event loop once per file, once per chunk of a large file,
/// and while it waits for the files; its flags tell it what the user asks for meanwhile.
class CopyJob {
public:
    CopyJob(const CopyServices& services, const CopyLibrary& library, Destination& destination,
            OverwritePrompt& prompt, const CopyControls& controls);

    /// Creates, loads and shows the prompt for an existing file, and returns when it is closed.
    Event ShowOverwrite;

    /// A job is running.
    bool Copying = false;
    /// A stop was asked for; the job reads it at each of its yields.
    bool CancelCopy() const { return m_cancelCopy; }
    /// The user asked to close the window while the job ran.
    bool CUnload() const { return m_cUnload; }
    /// Bytes copied or skipped so far.
    double CopiedBytes = 0;

    /// Starts a job, or asks the running one to stop.
    void cmdCopy_Click();
    /// The window is to close. A running job asks whether to quit, and closes the window itself
    /// after "Yes". False where no job runs, and the window may close now.
    bool StopToClose();
    /// The system ends the program: from now on the window closes after the job, and the user is
    /// not asked.
    void QuitUnasked() { m_quitsUnasked = true; }

private:
    /// Where the job goes on after a step.
    enum class Next {
        Step,      // the step after it
        SameTrack, // the same track again, from its count on
        Cleanup,   // the end of a stopped job
        Leave      // out at once: the window is gone
    };

    // Checks before a job.
    bool ChecksPass();
    bool DestinationIsReady();
    void RefuseDestination(const QString& folder);
    bool OfferToCreate(const QString& folder);
    bool AcceptFreeSpace(const QString& folder);

    // The job.
    Next Run();
    void Start();
    void ExchangeLibraries();
    CopyOptions Options() const;
    Next Walk(const std::vector<PlannedTrack>& plan);
    Next FinishWalk();
    void DeleteTemporaryFolder();
    void TryToClearUp();
    Next LeaveFile();
    void Cleanup();

    // The steps of one track.
    Next CopyTrack(const PlannedTrack& planned);
    Next CountTrack();
    Next PutTrack(const PlannedTrack& planned);
    Next PutNewFile(const PlannedTrack& planned, bool& isSettled);
    bool CopyNewFile(const PlannedTrack& planned);
    std::vector<FileToCopy> FilesToCopy(const PlannedTrack& planned);
    Next EnterFolders(const QStringList& names);
    void EnterFolder(const QString& folder, const QStringList& missing, qsizetype& made);
    void NameFile(const PlannedTrack& planned);
    Next PutFile(const TrackRecord& track);
    void AskToReplace(const QString& target);
    Next CopyFile(const TrackRecord& track, Existing existing, const Event& copy, bool& isTaken);
    void CopyBytes(const TrackRecord& track, const QString& target, Existing existing);
    bool AfterChunk(qint64 done);
    bool MayGoOn();
    bool MayWait();
    void ReadNextAhead();
    void ShowBytes(qint64 done);

    std::optional<ErrorAnswer> Try(const Event& action);
    Next Step(const Event& action);
    Next StopRequest();
    Next AskToStop();
    Next Quit();
    MessageAnswer Ask(const QString& text, MessageButtons buttons, MessageIcon icon);

    PatientFileSystem& m_files;
    Messages& m_messages;
    EventLoop& m_events;
    WindowManager& m_windowManager;
    CopyControls m_controls;
    MusicLibrary& m_library;
    SearchResult& m_result;
    const Search& m_search;
    SelectionSummary& m_summary;
    Destination& m_destination;
    OverwritePrompt& m_prompt;
    ChunkedCopy m_chunkedCopy;
    Naming m_naming;
    FolderNames m_folderNames;

    /// The destination folder, with a separator at its end.
    QString m_destRoot;
    /// The folder of the last track.
    QString m_enteredFolder;
    /// The last track's folders as the plan names them, if they could be made.
    std::optional<QStringList> m_folderNamesOfLast;
    bool m_cancelCopy = false;
    bool m_cUnload = false;
    bool m_quitsUnasked = false;
    /// What a stop request has led to; SameTrack while the job goes on.
    Next m_stop = Next::SameTrack;
    /// Until when what is left of a stopped file may be removed.
    QDeadlineTimer m_clearUp;
    /// The file that is being copied, and the bytes that the database says it has.
    CopyControl m_copying;
    qint64 m_fileSize = 0;
    /// The file of the next track, until it is read ahead.
    QString m_ahead;
    /// The tracks after the one at hand.
    std::span<const PlannedTrack> m_following;
    /// What is known of the first of them, and the names of those or more.
    CopiedFiles m_copied;
    QStringList m_namesAhead;
    /// How long the last file took.
    qint64 m_copyMilliseconds = 0;
    /// The bytes that the bar shows.
    double m_shownBytes = 0;
    /// The track at hand: where it comes from and goes to.
    CopyPlace m_place;
    /// Tracks handled so far.
    qint16 m_fileIndex = 0;
    /// Number of ticked tracks.
    qint32 m_fileTotal = 0;
    /// The job has put the full library in the place of the shown search result.
    bool m_resultIsAside = false;
};
