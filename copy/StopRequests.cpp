#include "copy/StopRequests.h"

using namespace Qt::StringLiterals;

/// After "No" the job goes on, unless it was the system that has closed the question, to end the
/// program.
bool StopRequests::Decide() {
    if (!m_cUnload || m_quitsUnasked) {
        m_decision = Stop;
    } else if (m_messages.Show(u"Are you sure you want to quit?"_s, u"Songlift"_s,
                               MessageButtons::YesNo,
                               MessageIcon::Question) == MessageAnswer::Yes) {
        m_decision = Quit;
    } else if (m_quitsUnasked) {
        m_decision = Stop;
    } else {
        m_cancelCopy = false;
    }
    m_clearUp.setRemainingTime(ClearUpMilliseconds);
    return m_decision == GoOn;
}
