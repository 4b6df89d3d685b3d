#pragma once

#include "platform/Controls.h"
#include "platform/Window.h"

/// The question about a file that exists, and its answer, which may hold for the rest of the job;
/// lives as long as the program.
class OverwritePrompt {
public:
    enum class Answer : qint16 { Replace, Skip, Cancel };
    using enum Answer;

    /// Another file exists. Until a button is pressed, the answer is Cancel.
    void AskAbout(const QString& file) {
        m_file = file;
        m_answer = Cancel;
    }
    /// Takes the user's answer, for every later existing file of this job if `all` is set.
    void Take(Answer answer, bool all) {
        m_answer = answer;
        m_all = all && answer != Cancel; // which ends the job, so there are no later files
    }
    /// The job is over, and the next one asks again.
    void ForgetAll() { m_all = false; }

    /// Full path of the existing file that is asked about.
    const QString& OverwriteFile() const { return m_file; }
    /// The last answer; it keeps its value between prompts.
    Answer OverwriteAnswer() const { return m_answer; }
    /// The answer holds for every later existing file of this job.
    bool OverwriteAll() const { return m_all; }

private:
    QString m_file;
    Answer m_answer = Replace;
    bool m_all = false;
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
