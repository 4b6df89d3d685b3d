#include "copy/CopyJob.h"

#include "platform/Paths.h"
#include "platform/ScopeGuard.h"

#include <exception>

using namespace Qt::StringLiterals;

namespace {

/// Thrown by a step after which the job does not go on.
struct WalkEnded {};

QString CancelCaption() {
    return u"&Cancel"_s;
}

} // namespace

CopyJob::CopyJob(const CopyServices& services, const CopyLibrary& library, Destination& destination,
                 OverwritePrompt& prompt, const CopyControls& controls)
    : m_services(services), m_library(library), m_controls(controls), m_prompt(prompt),
      m_checks(services.Files, services.MessageBoxes, services.Events, destination, library.Summary,
               controls.txtDestination),
      m_stops(services.MessageBoxes),
      m_progress(controls.Form1, controls.prgCopy, controls.lblMessage), m_targets(services.Files),
      m_transfer(services.Files, services.Events, m_targets, [this] { return AfterChunk(); }) {
}

void CopyJob::cmdCopy_Click() {
    if (m_controls.cmdCopy.Caption() == CancelCaption()) {
        m_stops.Cancel();
        return;
    }
    if (m_library.WordSearch.SearchRunning()) {
        return; // pressed while a search runs and neither library is complete
    }
    if (!m_checks.Pass()) {
        return;
    }
    ScopeGuard cleanup([this] { Cleanup(); });
    if (!Run()) {
        cleanup.Dismiss();
        return;
    }
    cleanup.Run();
    if (m_stops.ClosesWindow()) {
        m_controls.Form1.Unload();
    }
}

bool CopyJob::StopToClose() {
    if (Copying) {
        m_stops.CancelToClose();
    }
    return Copying;
}

/// The whole job. A failure outside of any step cannot be tried again, so it ends the job. Returns
/// false where the window is gone.
bool CopyJob::Run() {
    try {
        CopyAll();
        if (m_stops.Quits()) {
            Quit();
            return false;
        }
    } catch (const std::exception& exception) {
        ShowError(m_services.MessageBoxes, ErrorOf(exception));
    }
    return true;
}

/// Until all is copied, or the job is stopped.
void CopyJob::CopyAll() {
    try {
        Start();
        Walk(PlanCopy(m_library.Library, Options()));
        Finish();
    } catch (const WalkEnded&) {
        return;
    } catch (const OperationStopped&) {
        if (m_stops.Quits()) { // inside a file, of which no half is left behind
            TryToClearUp();
        }
    }
}

void CopyJob::Start() {
    Copying = true;
    m_controls.cmdCopy.SetCaption(CancelCaption());
    DisableControls(m_controls.Locked);
    m_place = {};
    m_stops.StartOver();
    m_progress.StartOver();
    m_transfer.StartOver();
    m_targets.StartOver(Paths::WithSeparator(m_controls.txtDestination.Text()));
    m_services.Files.MayGoOn = [this] { return MayWait(); };
    if (m_library.Result.Search()) {
        m_library.Result.UpdateOldArtists();
        ExchangeLibraries();
    }
    const SelectionSummary& summary = m_library.Summary;
    m_progress.Expect(summary.GetSelSongCount(), summary.SelectedSize);
}

/// Puts the full library in the place of the shown search result, or the result back in its place.
void CopyJob::ExchangeLibraries() {
    m_library.Result.ExchangeLibraries();
    m_resultIsAside = !m_resultIsAside;
}

/// The boxes' ticks, which cannot be changed before the job ends.
CopyOptions CopyJob::Options() const {
    return {.ArtistFolder = m_controls.chkArtist.Value(),
            .AlbumFolder = m_controls.chkAlbum.Value(),
            .ArtistName = m_controls.chkArtistName.Value(),
            .AlbumName = m_controls.chkAlbumName.Value(),
            .TrackNumber = m_controls.chkTrackNum.Value()};
}

void CopyJob::Walk(std::vector<PlannedTrack> plan) {
    for (auto planned = plan.begin(); planned != plan.end(); ++planned) {
        m_transfer.SetFollowing({planned + 1, plan.end()});
        CopyTrack(*planned);
    }
}

void CopyJob::Finish() {
    Step([this] { DeleteTemporaryFolder(); });
    m_progress.EmptyBar();
    FlashUnlessActive(m_services.Windows, m_controls.Form1.Handle());
    m_services.MessageBoxes.Show(u"Copy completed!"_s, u"Songlift"_s, MessageButtons::OK,
                                 MessageIcon::Information);
}

/// Deletes "tmp" in the destination with all it holds, whoever made it, as the README says: a
/// killed job may have left half a film there.
void CopyJob::DeleteTemporaryFolder() {
    const QString folder = m_targets.TemporaryFolder();
    if (!folder.isEmpty() && m_services.Files.FolderExists(folder)) {
        m_services.Files.DeleteFolder(folder, {});
    }
}

/// Removes what is left of a stopped file, but does not wait long for a disk that hangs.
void CopyJob::TryToClearUp() {
    try {
        TryStep(m_services.MessageBoxes, m_place, [this] { DeleteTemporaryFolder(); });
    } catch (const OperationStopped&) {
        return; // the next job into this folder removes it
    }
}

void CopyJob::Cleanup() {
    // Whatever the user answers, the window must become usable again.
    TryToClearUp();
    m_services.Files.MayGoOn = nullptr;
    m_services.Files.ReadAhead({}); // a device with an open file cannot be unmounted
    m_stops.Forget();
    m_targets.Forget();
    Copying = false;
    m_controls.Form1.SetCaption(u"Songlift"_s);
    if (m_resultIsAside) {
        ExchangeLibraries();
    }
    EnableControls(m_controls.Locked, m_library.WordSearch.SearchingText());
    // The small d is intentional: from its first job on, the button has this caption.
    m_controls.cmdCopy.SetCaption(u"&Copy to destination"_s);
    m_progress.EmptyBar();
    m_library.Summary.CalculateSize(false);
    m_prompt.ForgetAll();
}

bool CopyJob::AfterChunk() {
    m_progress.ShowBytes(m_transfer.BytesDone());
    m_services.Events.Yield();
    return m_stops.MayGoOn();
}

/// Called while the job waits for its files; returns whether to wait on. Inside a file the question
/// to quit is asked at once: after "No" a film goes on where it was.
bool CopyJob::MayWait() {
    m_services.Events.Yield();
    if (m_stops.IsStopped()) {
        return m_stops.MayClearUp();
    }
    m_progress.ShowBytes(m_transfer.BytesDone());
    m_transfer.ReadNextAhead();
    return m_stops.MayGoOn();
}

/// False where the user wanted to stop after a failure, but then not to quit.
bool CopyJob::Step(const Event& action) {
    switch (TryStep(m_services.MessageBoxes, m_place, action)) {
    case ErrorAnswer::GoOn:
        return true;
    case ErrorAnswer::Stop:
        StopRequest();
        return false;
    default:
        throw WalkEnded{};
    }
}

/// Ends the walk, unless the user does not want to quit.
void CopyJob::StopRequest() {
    if (!m_stops.Decide()) {
        throw WalkEnded{};
    }
}

void CopyJob::Quit() {
    m_services.Files.MayGoOn = nullptr;
    Copying = false;
    m_controls.Form1.Unload();
}

void CopyJob::CopyTrack(PlannedTrack& planned) {
    m_services.Events.Yield();
    m_place.Source = planned.Track.Location;
    m_place.FileName.clear();
    if (m_stops.CancelCopy()) {
        StopRequest();
    }
    do {
        m_progress.CountFile();
    } while (!PutTrack(planned));
    m_progress.FinishFile(planned.Track.FileSize);
    m_transfer.FinishFile();
}

/// Makes the folders of a track and puts its file there. False where a request to stop was taken
/// back, and the track begins again.
bool CopyJob::PutTrack(PlannedTrack& planned) {
    const bool isSmall = !FileTransfer::IsLarge(planned.Track);
    const bool wasEntered = isSmall && (m_targets.AreEntered(planned.Folders) ||
                                        m_targets.TakeAhead(planned.Folders, m_place));
    if (!wasEntered && !EnterFolders(planned)) {
        return false;
    }
    m_targets.NameFile(planned);
    m_place.FileName = planned.FileName;
    if (isSmall) {
        bool isInPlace = true;
        const auto copy = [&] { isInPlace = m_transfer.CopyNew(planned, m_place.DestFolder); };
        if (const bool goesOn = Step(copy); isInPlace || !goesOn) {
            return goesOn;
        }
    }
    if (wasEntered && !EnterFolders(planned)) { // the folder may be gone
        return false;
    }
    return PutFile(planned.Track);
}

/// Makes the track's folders where they are missing. A failure that is ignored leaves its folder
/// out.
bool CopyJob::EnterFolders(const PlannedTrack& planned) {
    // The message of a failure names the folder.
    const ScopeGuard over([&] { m_place.FileName = planned.FileName; });
    m_targets.ChooseFolders(planned.Folders);
    for (qsizetype made = 0; !m_targets.AreEntered(planned.Folders); ++made) {
        if (!Step([&] { m_targets.EnterFolders(made, m_place); })) {
            return false;
        }
    }
    return true;
}

/// Puts the track's file in its place, unless the user wants to keep one that is there. The user is
/// asked also about one that another program has put there meanwhile.
bool CopyJob::PutFile(const TrackRecord& track) {
    const QString target = m_place.DestFolder + m_place.FileName;
    Existing existing = Existing::Keep;
    bool isTaken = m_services.Files.WouldReplace(target);
    while (true) {
        if (isTaken) {
            AskToReplace(target);
            if (m_prompt.OverwriteAnswer() == OverwritePrompt::Cancel) {
                StopRequest();
                return false;
            }
            if (m_prompt.OverwriteAnswer() == OverwritePrompt::Skip) {
                return true;
            }
            existing = Existing::Replace;
        }
        isTaken = false;
        const auto copy = [&] { isTaken = !m_transfer.Copy(track, target, existing); };
        if (const bool goesOn = Step(copy); !isTaken) {
            return goesOn;
        }
    }
}

/// Leaves the user's answer in the prompt: a new one, or the one given for all files.
void CopyJob::AskToReplace(const QString& target) {
    if (!m_prompt.OverwriteAll()) {
        FlashUnlessActive(m_services.Windows, m_controls.Form1.Handle());
        m_prompt.AskAbout(target);
        Raise(ShowOverwrite);
    }
}
