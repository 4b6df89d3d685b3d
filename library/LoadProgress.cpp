#include "library/LoadProgress.h"

#include "platform/Numbers.h"
#include "platform/PatientFileSystem.h"
#include "platform/RuntimeError.h"
#include "platform/ScopeGuard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

LoadProgress::LoadProgress(MusicLibrary& library, EventLoop& events, const LoadControls& controls)
    : m_library(library), m_events(events), m_controls(controls) {
}

void LoadProgress::Start() {
    m_library.LoadingMusic = true;
    m_controls.lblMessage.SetCaption(u"Please wait..."_s);
    m_controls.Form1.Refresh();
    m_controls.Combo1.Refresh();
    MirrorInCaption();
    m_library.ForgetTracks();
}

void LoadProgress::ShowPartRead(float part) {
    m_partRead = std::clamp(part, m_partRead, 1.0F);
    m_controls.prgCopy.SetMax(1);
    m_controls.prgCopy.SetValue(m_partRead);
}

void LoadProgress::SetTotal(qint64 total) {
    m_total = static_cast<double>(total);
    m_controls.prgCopy.SetMax(static_cast<float>(total));
    if (m_partRead > 0) {
        m_controls.prgCopy.SetValue(m_partRead * m_controls.prgCopy.Max());
    }
}

void LoadProgress::TrackLoaded() {
    m_controls.prgCopy.SetValue(
        std::max<float>(m_library.TrackCount, m_partRead * m_controls.prgCopy.Max()));
    if (!m_total) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    const qint16 percent = ToInteger((100 / *m_total) * m_library.TrackCount);
    // Comparing numbers saves making a text for each track; each new text repaints the window.
    if (percent != m_shownPercent) {
        m_shownPercent = percent;
        m_controls.lblMessage.SetCaption(u"Loading music... %1%"_s.arg(percent));
        MirrorInCaption();
        m_controls.Form1.Refresh();
        if (!m_events.YieldHoldingInput()) {
            throw OperationStopped();
        }
    }
}

void LoadProgress::End() {
    ScopeGuard ended([this] { m_library.LoadingMusic = false; });
    m_controls.prgCopy.SetValue(0);
    ended.Run();
    m_controls.Form1.SetCaption(u"Songlift"_s);
}

void LoadProgress::MirrorInCaption() {
    if (m_controls.Form1.Minimized()) {
        m_controls.Form1.SetCaption(m_controls.lblMessage.Caption());
    }
}
