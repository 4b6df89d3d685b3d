#include "copy/OverwritePrompt.h"

using namespace Qt::StringLiterals;

frmOverwrite::frmOverwrite(OverwritePrompt& prompt, const OverwriteControls& controls)
    : m_prompt(prompt), m_controls(controls) {
    m_controls.cmdOverwrite0.Click = [this] { cmdOverwrite_Click(OverwritePrompt::Replace); };
    m_controls.cmdOverwrite1.Click = [this] { cmdOverwrite_Click(OverwritePrompt::Skip); };
    m_controls.cmdOverwrite2.Click = [this] { cmdOverwrite_Click(OverwritePrompt::Cancel); };
}

void frmOverwrite::Form_Load() {
    const double margin = m_controls.window.Width() - m_controls.lblMessage.Width();
    QString file = m_prompt.OverwriteFile();
    file.replace(u'&', u"&&"_s);
    m_controls.lblMessage.SetCaption(u"File already exists: \""_s + file + u"\". Replace it?"_s);
    m_controls.lblMessage.SizeToCaption();
    m_controls.window.SetSize(m_controls.lblMessage.Width() + margin, m_controls.window.Height());
}

void frmOverwrite::cmdOverwrite_Click(OverwritePrompt::Answer answer) {
    m_prompt.Take(answer, m_controls.chkSame.Value());
    m_controls.window.Unload();
}
