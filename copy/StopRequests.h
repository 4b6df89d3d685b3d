#pragma once

#include "platform/Messages.h"

#include <QDeadlineTimer>

/// What the user has asked of a running copy job, and what it leads to.
class StopRequests {
public:
    explicit StopRequests(Messages& messages) : m_messages(messages) {}

    /// A job begins.
    void StartOver() {
        // Else a close of the window in an earlier job would turn Cancel into the question to quit.
        m_cUnload = false;
        m_closesWindow = false;
        m_decision = GoOn;
    }
    void Cancel() { m_cancelCopy = true; }
    /// The user closes the window. A job that was stopped already does not ask any more.
    void CancelToClose() {
        m_cancelCopy = m_cUnload = true;
        m_closesWindow = IsStopped();
    }
    /// From now on the window closes after the job, and the user is not asked.
    void QuitUnasked() { m_quitsUnasked = true; }
    /// No stop is asked for any more.
    void Forget() { m_cancelCopy = false; }

    bool CancelCopy() const { return m_cancelCopy; }
    bool CUnload() const { return m_cUnload; }

    /// Decides about a request: asks the user if it came from closing the window. Returns whether
    /// the job goes on.
    bool Decide();
    /// The same, but only if there is a request.
    bool MayGoOn() { return !m_cancelCopy || Decide(); }

    /// The job was stopped.
    bool IsStopped() const { return m_decision != GoOn; }
    /// It was stopped to end the program.
    bool Quits() const { return m_decision == Quit; }
    /// The window closes after the job.
    bool ClosesWindow() const { return m_closesWindow || m_quitsUnasked || Quits(); }
    /// There is still time to remove what is left of a stopped file.
    bool MayClearUp() const { return !m_clearUp.hasExpired(); }

private:
    /// How long a stopped job waits for what is left of its last file to be removed.
    static constexpr int ClearUpMilliseconds = 100;

    Messages& m_messages;
    bool m_cancelCopy = false;
    bool m_cUnload = false;
    bool m_closesWindow = false;
    bool m_quitsUnasked = false;
    enum { GoOn, Stop, Quit } m_decision = GoOn;
    QDeadlineTimer m_clearUp;
};
