#pragma once

#include "platform/Controls.h"
#include "platform/Window.h"

/// What the copy job and its prompt for existing files tell each other; lives as long as the
/// program.
struct OverwritePrompt {
    enum class Answer : qint16 { Replace, Skip, Cancel };
    using enum Answer;

    /// Full path of the existing file, set before the prompt is shown.
    QString OverwriteFile;
    /// The last answer; it keeps its value between prompts.
    Answer OverwriteAnswer = Replace;
    /// The answer holds for every later existing file of this job.
    bool OverwriteAll = false;
};

/// The window of the prompt and its controls.
struct OverwriteControls {
    Window& window;
    LabelControl& lblMessage;
    ButtonControl& cmdOverwrite0;
    ButtonControl& cmdOverwrite1;
    ButtonControl& cmdOverwrite2;
    CheckControl& chkSame;
};

/// The prompt for one existing file. Created and loaded anew whenever it is shown.
class frmOverwrite {
public:
    /// Wires the three buttons to cmdOverwrite_Click, so this must outlive the window's showing.
    frmOverwrite(OverwritePrompt& prompt, const OverwriteControls& controls);
    frmOverwrite(const frmOverwrite&) = delete;
    frmOverwrite& operator=(const frmOverwrite&) = delete;

    /// Writes the question and makes the window as wide as it needs. Call before showing the
    /// window.
    void Form_Load();
    /// Takes the answer, and closes the window.
    void cmdOverwrite_Click(OverwritePrompt::Answer answer);

private:
    OverwritePrompt& m_prompt;
    OverwriteControls m_controls;
};
