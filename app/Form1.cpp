#include "app/Form1.h"

#include "app/ControlGroups.h"

#include <utility>

using namespace Qt::StringLiterals;

Form1::Form1(const Services& services, Form1Controls& controls, PreviewControls& preview,
             std::function<void(OverwritePrompt&)> showOverwrite)
    : m_messages(services.MessageBoxes), m_controls(controls), m_previewControls(preview),
      m_parts(services, controls),
      m_layout(
          services.Windows, m_parts.Loading.Library, [this] { return m_parts.Job.Copying; },
          m_parts.Fitting, controls),
      m_settings(services.Store, services.Desktop, services.Windows, m_layout,
                 SettingsControlsOf(controls)),
      m_previewFiles(services.Files, services.Background, services.Background),
      m_preview(m_parts.Lists, m_previewFiles, services.MessageBoxes, SongControlsOf(controls),
                preview) {
    m_previewFiles.MayGoOn = [&events = services.Events] { return events.YieldHoldingInput(); };
    m_parts.Job.ShowOverwrite = [this, show = std::move(showOverwrite)] { show(m_parts.Prompt); };
    m_layout.KeepDesign();
    WireWindow();
}

void Form1::WireWindow() {
    m_controls.Form1.Resize = [this] { m_layout.Form_Resize(); };
    m_controls.Form1.QueryUnload = [this](bool& cancel, UnloadMode mode) {
        Form_Unload(cancel, mode);
    };
    m_controls.mnuPreview.Click = [this] { m_preview.mnuPreview_Click(); };
    m_previewControls.frmPreview.QueryUnload = [this](bool& cancel, UnloadMode mode) {
        m_preview.Form_QueryUnload(cancel, mode);
    };
    m_previewControls.QTControl.SizeChanged = [this] { m_preview.QTControl_SizeChanged(); };
    m_layout.DestinationResized = [this] { m_parts.Target.txtDestination_Change(); };
    WireHandle(m_controls.Handle0, 0);
    WireHandle(m_controls.Handle1, 1);
}

void Form1::WireHandle(HandleControl& handle, int Index) {
    handle.MouseDown = [this, Index](const MouseState&) { m_layout.Handle_MouseDown(Index); };
    handle.MouseMove = [this, Index](const MouseState& mouse) {
        m_layout.Handle_MouseMove(Index, mouse.X);
    };
    handle.MouseUp = [this, Index](const MouseState&) { m_layout.Handle_MouseUp(Index); };
}

void Form1::Form_Load() {
    m_settings.Check();
    m_settings.RestoreOptions();
    m_controls.prgCopy.SetValue(0);
    m_controls.Form1.SetCaption(u"Songlift"_s);
    m_layout.LayOutLists();
    m_settings.RestoreWindow();
    m_layout.Form_Resize();
    m_settings.RestoreHandles();
    m_controls.Form1.Show();
    m_controls.lstArtists.SetFocus();
    m_parts.Devices.Combo1_DropDown();
    if (m_controls.Combo1.ListCount() > 0) {
        m_controls.Combo1.SetText(m_controls.Combo1.List(0));
    }
}

void Form1::Form_Unload(bool& cancel, UnloadMode) {
    cancel = m_parts.Job.StopToClose();
    if (cancel) {
        return;
    }
    m_previewControls.frmPreview.Unload();
    if (!m_settings.Save()) {
        m_messages.Show(u"Your settings could not be saved in \"%1\". The next start "
                        "will have the earlier ones."_s.arg(m_settings.StoreName()),
                        u"Error"_s, MessageButtons::OK, MessageIcon::Exclamation);
    }
}
