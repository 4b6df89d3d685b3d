#pragma once

#include "copy/ControlLock.h"
#include "copy/CopyChecks.h"
#include "copy/CopyErrors.h"
#include "copy/CopyPlan.h"
#include "copy/CopyProgress.h"
#include "copy/CopyTargets.h"
#include "copy/FileTransfer.h"
#include "copy/OverwritePrompt.h"
#include "copy/StopRequests.h"
#include "platform/WindowManager.h"
#include "selection/Search.h"

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
    bool CancelCopy() const { return m_stops.CancelCopy(); }
    /// The user asked to close the window while the job ran.
    bool CUnload() const { return m_stops.CUnload(); }
    /// Bytes copied or skipped so far.
    double CopiedBytes() const { return m_progress.CopiedBytes(); }

    /// Starts a job, or asks the running one to stop.
    void cmdCopy_Click();
    /// The window is to close. A running job asks whether to quit, and closes the window itself
    /// after "Yes"; one that was stopped already closes it unasked when it is over. False where no
    /// job runs, and the window may close now.
    bool StopToClose();
    /// The system ends the program: from now on the window closes after the job, and the user is
    /// not asked.
    void QuitUnasked() { m_stops.QuitUnasked(); }

private:
    bool Run();
    void CopyAll();
    void Start();
    void ExchangeLibraries();
    CopyOptions Options() const;
    void Walk(std::vector<PlannedTrack> plan);
    void Finish();
    void DeleteTemporaryFolder();
    void TryToClearUp();
    void Cleanup();
    bool AfterChunk();
    bool MayWait();
    bool Step(const Event& action);
    void StopRequest();
    void Quit();

    void CopyTrack(PlannedTrack& planned);
    bool PutTrack(PlannedTrack& planned);
    bool EnterFolders(const PlannedTrack& planned);
    bool PutFile(const TrackRecord& track);
    void AskToReplace(const QString& target);

    CopyServices m_services;
    CopyLibrary m_library;
    CopyControls m_controls;
    OverwritePrompt& m_prompt;
    CopyChecks m_checks;
    StopRequests m_stops;
    CopyProgress m_progress;
    CopyTargets m_targets;
    FileTransfer m_transfer;

    /// The track at hand: where it comes from and goes to.
    CopyPlace m_place;
    /// The job has put the full library in the place of the shown search result.
    bool m_resultIsAside = false;
};
