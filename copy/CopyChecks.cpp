// What the copy job checks before it starts. No job runs yet, so a check that fails leaves nothing
// to clean up.

#include "copy/CopyJob.h"

#include "platform/Paths.h"
#include "platform/ScopeGuard.h"

using namespace Qt::StringLiterals;

/// Keeps the window alive meanwhile: the destination's disk may have to start first, or hang.
bool CopyJob::ChecksPass() {
    m_files.MayGoOn = [this] { return m_events.YieldHoldingInput(); };
    const ScopeGuard over([this] { m_files.MayGoOn = nullptr; });
    try {
        return DestinationIsReady();
    } catch (const OperationStopped&) {
        return false; // the window is about to close
    }
}

bool CopyJob::DestinationIsReady() {
    const QString folder = m_controls.txtDestination.Text();
    if (folder.isEmpty()) {
        Ask(u"Please specify a destination path."_s, MessageButtons::OK, MessageIcon::Exclamation);
        m_controls.txtDestination.SetFocus();
        return false;
    }
    // The iPod is never written to, whatever path leads there.
    if (m_files.IsOnIpod(folder)) {
        RefuseDestination(folder);
        return false;
    }
    if (!m_files.FolderExists(folder) && !OfferToCreate(folder)) {
        return false;
    }
    return AcceptFreeSpace(folder);
}

void CopyJob::RefuseDestination(const QString& folder) {
    Ask(u"Invalid destination path."_s, MessageButtons::OK, MessageIcon::Exclamation);
    m_controls.txtDestination.SetFocus();
    m_controls.txtDestination.Select(0, static_cast<int>(folder.size()));
}

bool CopyJob::OfferToCreate(const QString& folder) {
    const bool isValid = m_destination.ValidatePath(folder);
    // Cleared first: if the deletion fails, a later job may fill the folder, which must stay then.
    const QString probe = m_destination.TakeProbeFolder();
    if (!probe.isEmpty()) {
        m_place = {probe, probe, {}}; // for the message of a failure
        if (Step([&] { m_files.DeleteFolder(probe, {}); }) != Next::Step) {
            return false;
        }
        m_place = {};
    }
    if (!isValid) {
        RefuseDestination(folder);
        return false;
    }
    if (Ask(u"Destination folder does not exist. Create?"_s, MessageButtons::OKCancel,
            MessageIcon::Question) != MessageAnswer::OK) {
        return false;
    }
    // Set by an earlier attempt: a failure just now was reported above.
    if (m_destination.TakeCreateFailed()) {
        m_messages.Show(u"Unable to create folder."_s, u"Error"_s, MessageButtons::OK,
                        MessageIcon::Critical);
        return false;
    }
    try {
        m_files.CreateFolderChain(folder);
    } catch (const RuntimeError&) {
        // The first step that needs the folder reports it.
    }
    return true;
}

bool CopyJob::AcceptFreeSpace(const QString& folder) {
    double freeBytes = m_summary.SelectedSize;
    QString drive;
    const Next next = Step([&] {
        drive = m_files.DriveOf(folder);
        freeBytes = m_files.FreeBytes(folder);
    });
    if (next != Next::Step) {
        return false;
    }
    if (m_summary.SelectedSize <= freeBytes) {
        return true;
    }
    const QString question = u"There is not enough space on drive "_s + drive +
                             u" to copy all\rof the selected files. Copy as much "
                             "as possible?"_s;
    return Ask(question, MessageButtons::OKCancel, MessageIcon::Exclamation) == MessageAnswer::OK;
}
