#pragma once

#include "app/Layout.h"
#include "app/Preview.h"
#include "app/Settings.h"
#include "app/Subsystems.h"

/// The main window: owns the subsystems and what belongs to the window itself, and holds start-up
/// and shutdown.
class Form1 {
public:
    /// `showOverwrite` makes the overwrite prompt's window, shows it and returns when it is closed.
    Form1(const Services& services, Form1Controls& controls, PreviewControls& preview,
          std::function<void(OverwritePrompt&)> showOverwrite);
    Form1(const Form1&) = delete;
    Form1& operator=(const Form1&) = delete;

    /// Restores the settings, shows the window, and loads the first iPod that is attached. Throws
    /// RuntimeError before anything is shown when a stored number is invalid.
    void Form_Load();
    /// From now on, a job that is stopped because the window closes does not ask whether to quit.
    void QuitUnasked() { m_parts.Job.QuitUnasked(); }

private:
    void Form_Unload(bool& cancel, UnloadMode mode);
    void WireWindow();
    void WireHandle(HandleControl& handle, int Index);

    Messages& m_messages;
    Form1Controls& m_controls;
    PreviewControls& m_previewControls;
    Subsystems m_parts;
    Layout m_layout;
    Settings m_settings;
    PatientFileSystem m_previewFiles;
    Preview m_preview;
};
