#include "app/OverwriteWindow.h"

#include "platform/qt/ControlWidget.h"
#include "platform/qt/Twips.h"

#include <QScreen>

using namespace Qt::StringLiterals;

OverwriteWindow::OverwriteWindow(QWidget* owner, OverwritePrompt& prompt)
    : m_window(ControlWidget::SeenOwner(owner), u"frmOverwrite"_s, Qt::Dialog),
      m_lblMessage(m_window.Widget(), u"lblMessage"_s),
      m_chkSame(m_window.Widget(), u"chkSame"_s, u"Do the same for all files"_s),
      m_cmdOverwrite0(m_window.Widget(), u"cmdOverwrite0"_s, u"&Replace"_s),
      m_cmdOverwrite1(m_window.Widget(), u"cmdOverwrite1"_s, u"&Skip"_s),
      m_cmdOverwrite2(m_window.Widget(), u"cmdOverwrite2"_s, u"&Cancel"_s),
      m_form(prompt, {m_window, m_lblMessage, m_cmdOverwrite0, m_cmdOverwrite1, m_cmdOverwrite2,
                      m_chkSame}) {
    m_window.SetCaption(u"Overwrite File"_s);
    LayOut();
    // Enter must not replace a file by accident.
    m_cmdOverwrite1.SetDefault(true);
    m_cmdOverwrite1.SetFocus();
}

void OverwriteWindow::LayOut() {
    const double pixel = Twips::PerPixelX();
    const double margin = 14 * pixel;
    const double gap = 8 * pixel;
    const double buttonWidth = 84 * pixel;
    const double screen = m_window.Widget()->screen()->availableSize().width() * pixel;

    m_lblMessage.LimitWidth(0.95 * screen - 2 * margin);
    m_lblMessage.Move(margin, margin, 3 * buttonWidth + 2 * gap, m_lblMessage.Height());
    m_chkSame.Move(margin, margin + m_lblMessage.Height() + gap, m_chkSame.Width(),
                   m_chkSame.Height());
    const double top = m_chkSame.Top() + m_chkSame.Height() + 12 * pixel;
    double left = margin;
    for (QtButtonControl* button : {&m_cmdOverwrite0, &m_cmdOverwrite1, &m_cmdOverwrite2}) {
        button->Move(left, top, buttonWidth, button->Height());
        left += buttonWidth + gap;
    }
    // A short question would leave less width than the buttons need.
    m_window.SetMinimumSize(m_lblMessage.Width() + 2 * margin, 0);
    m_window.SetSize(m_lblMessage.Width() + 2 * margin, top + m_cmdOverwrite0.Height() + margin);
}

void OverwriteWindow::Ask() {
    m_form.Form_Load();
    // A larger window would have nothing more to show.
    m_window.Widget()->setFixedSize(m_window.Widget()->size());
    m_window.ShowModal();
}
