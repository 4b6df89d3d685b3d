#pragma once

#include "platform/Controls.h"
#include "platform/Window.h"

/// How far the copy job is, and how the window shows it: by the bar, and by the text that counts
/// the files.
class CopyProgress {
public:
    CopyProgress(Window& form, ProgressControl& bar, LabelControl& text)
        : m_form(form), m_bar(bar), m_text(text) {}

    /// A job begins.
    void StartOver();
    /// How much the job has to copy.
    void Expect(qint32 files, double bytes);
    /// The next file begins. Throws Overflow, and shows nothing then.
    void CountFile();
    /// So many bytes of the file are there.
    void ShowBytes(qint64 done);
    /// A file of so many bytes is copied or skipped.
    void FinishFile(qint32 bytes) { m_copiedBytes += bytes; }
    void EmptyBar() { m_bar.SetValue(0); }

    /// The bytes of the files that are copied or skipped.
    double CopiedBytes() const { return m_copiedBytes; }

private:
    Window& m_form;
    ProgressControl& m_bar;
    LabelControl& m_text;
    double m_copiedBytes = 0;
    /// The bytes that the bar shows.
    double m_shownBytes = 0;
    /// Files handled so far, of all that are ticked.
    qint16 m_fileIndex = 0;
    qint32 m_fileTotal = 0;
};
