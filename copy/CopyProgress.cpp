#include "copy/CopyProgress.h"

#include "platform/Numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void CopyProgress::StartOver() {
    EmptyBar();
    m_text.SetCaption(u"Please wait..."_s);
    EmptyBar();
    m_copiedBytes = 0;
    m_shownBytes = 0;
    m_fileIndex = 0;
}

void CopyProgress::Expect(qint32 files, double bytes) {
    m_fileTotal = files;
    m_bar.SetMax(static_cast<float>(bytes));
}

void CopyProgress::CountFile() {
    m_fileIndex = ToInteger(m_fileIndex + 1.0);
    m_shownBytes = std::max(m_shownBytes, m_copiedBytes);
    m_bar.SetValue(static_cast<float>(m_shownBytes));
    const QString text = u"Copying files... "_s + QString::number(m_fileIndex) + u" of "_s +
                         QString::number(m_fileTotal);
    m_text.SetCaption(text);
    if (m_form.Minimized()) {
        m_form.SetCaption(text);
    }
}

/// Moves the bar, but never back: bytes that are copied again were shown before.
void CopyProgress::ShowBytes(qint64 done) {
    const double bytes = m_copiedBytes + static_cast<double>(done);
    if (bytes > m_shownBytes) {
        m_shownBytes = bytes;
        m_bar.SetValue(static_cast<float>(bytes));
    }
}
