#pragma once

#include "copy/OverwritePrompt.h"
#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtCheckControl.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtWindow.h"

/// The real window of the overwrite prompt, built again for each question.
class OverwriteWindow {
public:
    /// `owner` is the main window, over which the prompt stands unless that is minimised.
    OverwriteWindow(QWidget* owner, OverwritePrompt& prompt);
    OverwriteWindow(const OverwriteWindow&) = delete;
    OverwriteWindow& operator=(const OverwriteWindow&) = delete;

    /// Shows the question and returns when it is answered or closed.
    void Ask();

private:
    void LayOut();

    QtWindow m_window;
    QtLabelControl m_lblMessage;
    QtCheckControl m_chkSame;
    QtButtonControl m_cmdOverwrite0;
    QtButtonControl m_cmdOverwrite1;
    QtButtonControl m_cmdOverwrite2;
    frmOverwrite m_form;
};
