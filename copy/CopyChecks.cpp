#include "copy/CopyChecks.h"

#include "copy/CopyErrors.h"
#include "platform/Paths.h"
#include "platform/ScopeGuard.h"

using namespace Qt::StringLiterals;

CopyChecks::CopyChecks(PatientFileSystem& files, Messages& messages, EventLoop& events,
                       Destination& destination, const SelectionSummary& summary,
                       TextControl& txtDestination)
    : m_files(files), m_messages(messages), m_events(events), m_destination(destination),
      m_summary(summary), m_txtDestination(txtDestination) {
}

/// Keeps the window alive meanwhile: the destination's disk may have to start first, or hang.
bool CopyChecks::Pass() {
    m_files.MayGoOn = [this] { return m_events.YieldHoldingInput(); };
    const ScopeGuard over([this] { m_files.MayGoOn = nullptr; });
    try {
        return DestinationIsReady();
    } catch (const OperationStopped&) {
        return false; // the window is about to close
    }
}

bool CopyChecks::DestinationIsReady() {
    const QString folder = m_txtDestination.Text();
    if (folder.isEmpty()) {
        Ask(u"Please specify a destination path."_s, MessageButtons::OK, MessageIcon::Exclamation);
        m_txtDestination.SetFocus();
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

void CopyChecks::RefuseDestination(const QString& folder) {
    Ask(u"Invalid destination path."_s, MessageButtons::OK, MessageIcon::Exclamation);
    m_txtDestination.SetFocus();
    m_txtDestination.Select(0, static_cast<int>(folder.size()));
}

bool CopyChecks::OfferToCreate(const QString& folder) {
    const bool isValid = m_destination.ValidatePath(folder);
    // Cleared first: if the deletion fails, a later job may fill the folder, which must stay then.
    const QString probe = m_destination.TakeProbeFolder();
    const auto deleteProbe = [&] { m_files.DeleteFolder(probe, {}); };
    if (!probe.isEmpty() &&
        TryStep(m_messages, {probe, probe, {}}, deleteProbe) != ErrorAnswer::GoOn) {
        return false;
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

bool CopyChecks::AcceptFreeSpace(const QString& folder) {
    double freeBytes = m_summary.SelectedSize;
    QString drive;
    const ErrorAnswer answer = TryStep(m_messages, {}, [&] {
        drive = m_files.DriveOf(folder);
        freeBytes = m_files.FreeBytes(folder);
    });
    if (answer != ErrorAnswer::GoOn) {
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

MessageAnswer CopyChecks::Ask(const QString& text, MessageButtons buttons, MessageIcon icon) {
    return m_messages.Show(text, u"Songlift"_s, buttons, icon);
}
