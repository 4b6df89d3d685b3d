#include "copy/CopyJob.h"

#include "platform/Paths.h"
#include "platform/ScopeGuard.h"

#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// How long a stopped job waits for what is left of its last file to be removed.
constexpr int ClearUpMilliseconds = 100;

QString CancelCaption() {
    return u"&Cancel"_s;
}

} // namespace

CopyJob::CopyJob(const CopyServices& services, const CopyLibrary& library, Destination& destination,
                 OverwritePrompt& prompt, const CopyControls& controls)
    : m_files(services.Files), m_messages(services.MessageBoxes), m_events(services.Events),
      m_windowManager(services.Windows), m_controls(controls), m_library(library.Library),
      m_result(library.Result), m_search(library.WordSearch), m_summary(library.Summary),
      m_destination(destination), m_prompt(prompt),
      m_chunkedCopy(services.Files, [this](qint64 done) { return AfterChunk(done); }),
      m_folderNames(services.Files) {
}

void CopyJob::cmdCopy_Click() {
    if (m_controls.cmdCopy.Caption() == CancelCaption()) {
        m_cancelCopy = true;
        return;
    }
    if (m_search.SearchRunning()) {
        return; // pressed while a search runs and neither library is complete
    }
    // Else a close of the window in an earlier job would turn Cancel into the question to quit.
    m_cUnload = false;
    m_place = {};
    if (!ChecksPass()) {
        return;
    }
    ScopeGuard cleanup([this] { Cleanup(); });
    if (Run() == Next::Leave) {
        cleanup.Dismiss();
    } else {
        cleanup.Run();
        if (m_quitsUnasked || m_stop == Next::Leave) {
            m_controls.Form1.Unload();
        }
    }
}

bool CopyJob::StopToClose() {
    if (Copying) {
        m_cancelCopy = true;
        m_cUnload = true;
    }
    return Copying;
}

/// The whole job. A failure outside of any step cannot be tried again, so it ends the job.
CopyJob::Next CopyJob::Run() {
    try {
        Start();
        const Next next = Walk(PlanCopy(m_library, Options()));
        return next == Next::Step ? FinishWalk() : next;
    } catch (const OperationStopped&) {
        return m_stop == Next::Leave ? LeaveFile() : Next::Cleanup;
    } catch (const std::exception& exception) {
        ShowError(m_messages, ErrorOf(exception));
    }
    return Next::Cleanup;
}

/// Quits inside a file, and leaves no half of it behind.
CopyJob::Next CopyJob::LeaveFile() {
    TryToClearUp();
    return Quit();
}

void CopyJob::Start() {
    Copying = true;
    m_controls.cmdCopy.SetCaption(CancelCaption());
    DisableControls(m_controls.Locked);
    m_controls.prgCopy.SetValue(0);
    m_controls.lblMessage.SetCaption(u"Please wait..."_s);
    m_controls.prgCopy.SetValue(0);
    CopiedBytes = 0;
    m_shownBytes = 0;
    m_fileSize = 0;
    m_copying = {};
    m_copyMilliseconds = 0;
    m_copied = {};
    m_namesAhead.clear();
    m_stop = Next::SameTrack;
    m_files.MayGoOn = [this] { return MayWait(); };
    m_destRoot = Paths::WithSeparator(m_controls.txtDestination.Text());
    if (m_result.Search()) {
        m_result.UpdateOldArtists();
        ExchangeLibraries();
    }
    m_fileTotal = m_summary.GetSelSongCount();
    m_controls.prgCopy.SetMax(static_cast<float>(m_summary.SelectedSize));
    m_fileIndex = 0;
    m_enteredFolder.clear();
    m_folderNamesOfLast.reset();
    m_folderNames.StartOver();
}

/// Puts the full library in the place of the shown search result, or the result back in its place.
void CopyJob::ExchangeLibraries() {
    m_result.ExchangeLibraries();
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

CopyJob::Next CopyJob::Walk(const std::vector<PlannedTrack>& plan) {
    for (auto planned = plan.begin(); planned != plan.end(); ++planned) {
        m_following = {planned + 1, plan.end()};
        m_ahead = m_following.empty() ? QString() : m_following.front().Track.Location;
        if (const Next next = CopyTrack(*planned); next != Next::Step) {
            return next;
        }
    }
    return Next::Step;
}

CopyJob::Next CopyJob::FinishWalk() {
    const Next next = Step([this] { DeleteTemporaryFolder(); });
    if (next == Next::Cleanup || next == Next::Leave) {
        return next;
    }
    m_controls.prgCopy.SetValue(0);
    FlashUnlessActive(m_windowManager, m_controls.Form1.Handle());
    Ask(u"Copy completed!"_s, MessageButtons::OK, MessageIcon::Information);
    return Next::Cleanup;
}

/// Deletes "tmp" in the destination with all it holds, whoever made it, as the README says: a
/// killed job may have left half a film there.
void CopyJob::DeleteTemporaryFolder() {
    const QString folder = m_destRoot + u"tmp"_s;
    if (m_files.FolderExists(folder)) {
        m_files.DeleteFolder(folder, {});
    }
}

/// Removes what is left of a stopped file, but does not wait long for a disk that hangs.
void CopyJob::TryToClearUp() {
    try {
        Try([this] { DeleteTemporaryFolder(); });
    } catch (const OperationStopped&) {
        return; // the next job into this folder removes it
    }
}

void CopyJob::Cleanup() {
    // Whatever the user answers, the window must become usable again.
    TryToClearUp();
    m_files.MayGoOn = nullptr;
    m_files.ReadAhead({}); // a device with an open file cannot be unmounted
    m_cancelCopy = false;
    Copying = false;
    m_controls.Form1.SetCaption(u"Songlift"_s);
    if (m_resultIsAside) {
        ExchangeLibraries();
    }
    EnableControls(m_controls.Locked, m_search.SearchingText());
    // The small d is intentional: from its first job on, the button has this caption.
    m_controls.cmdCopy.SetCaption(u"&Copy to destination"_s);
    m_controls.prgCopy.SetValue(0);
    m_summary.CalculateSize(false);
    m_prompt.ForgetAll();
}

/// Runs a step until it succeeds (no answer) or the user answers its failure with anything but
/// Retry.
std::optional<ErrorAnswer> CopyJob::Try(const Event& action) {
    for (;;) {
        try {
            action();
            return {};
        } catch (const std::exception& exception) {
            const ErrorAnswer answer = AskAboutError(m_messages, ErrorOf(exception), m_place);
            if (answer != ErrorAnswer::Retry) {
                return answer;
            }
        }
    }
}

CopyJob::Next CopyJob::Step(const Event& action) {
    const ErrorAnswer answer = Try(action).value_or(ErrorAnswer::Ignore);
    if (answer == ErrorAnswer::Ignore) {
        return Next::Step;
    }
    return answer == ErrorAnswer::Stop ? StopRequest() : Next::Cleanup;
}

CopyJob::Next CopyJob::StopRequest() {
    const Next next = AskToStop();
    return next == Next::Leave ? Quit() : next;
}

/// What a stop request leads to. If it came from closing the window, the user is asked, and the job
/// goes on after "No", unless it was the system that has closed the question, to end the program.
CopyJob::Next CopyJob::AskToStop() {
    if (!m_cUnload || m_quitsUnasked) {
        m_stop = Next::Cleanup;
    } else if (Ask(u"Are you sure you want to quit?"_s, MessageButtons::YesNo,
                   MessageIcon::Question) == MessageAnswer::Yes) {
        m_stop = Next::Leave;
    } else if (m_quitsUnasked) {
        m_stop = Next::Cleanup;
    } else {
        m_cancelCopy = false;
    }
    m_clearUp.setRemainingTime(ClearUpMilliseconds);
    return m_stop;
}

CopyJob::Next CopyJob::Quit() {
    m_files.MayGoOn = nullptr;
    Copying = false;
    m_controls.Form1.Unload();
    return Next::Leave;
}

MessageAnswer CopyJob::Ask(const QString& text, MessageButtons buttons, MessageIcon icon) {
    return m_messages.Show(text, u"Songlift"_s, buttons, icon);
}
