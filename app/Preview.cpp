#include "app/Preview.h"

#include "platform/ScopeGuard.h"

Preview::Preview(const BrowserState& state, LinkedLists& lists, FileSystem& files,
                 Messages& messages, Form1Controls& controls, PreviewControls& preview)
    : m_state(state), m_lists(lists), m_files(files), m_messages(messages), m_controls(controls),
      m_preview(preview) {
}

void Preview::mnuPreview_Click() {
    const int row = m_controls.lstSongs.ListIndex();
    if (row < 1 || m_state.Building || !m_controls.lstSongs.Enabled()) {
        return; // the row went, or a job began, while the menu stood open
    }
    const QString path = m_lists.Track(row).Location;
    if (!m_files.FileExists(path)) {
        m_messages.Show(QStringLiteral("File not found: \"%1\"").arg(path), QStringLiteral("Error"),
                        MessageButtons::OK, MessageIcon::Exclamation);
        return;
    }
    ScopeGuard pointer([this] { m_controls.Form1.SetMousePointer(MousePointer::Default); });
    m_controls.Form1.SetMousePointer(MousePointer::Hourglass);
    ScopeGuard failed([this] { m_preview.QTControl.SetSource(QString()); });
    m_preview.QTControl.SetSource(path);
    const double width = m_preview.QTControl.Width();
    const double height = m_preview.QTControl.Height();
    FitWindowAround(width, height);
    m_preview.frmPreview.SetCaption(m_controls.lstSongs.List(row));
    m_preview.frmPreview.Show();
    // A window that was never shown gets its borders only on the screen.
    m_preview.frmPreview.Refresh();
    FitWindowAround(width, height);
    failed.Dismiss();
    pointer.Run();
}

/// Border and title bar are kept: the inside takes the player's size.
void Preview::FitWindowAround(double width, double height) {
    Window& window = m_preview.frmPreview;
    window.SetSize(width + (window.Width() - window.ScaleWidth()),
                   height + (window.Height() - window.ScaleHeight()));
}

void Preview::Form_QueryUnload(bool& Cancel, UnloadMode Mode) {
    m_preview.QTControl.SetSource(QString());
    if (Mode == UnloadMode::User) {
        Cancel = true;
        m_preview.frmPreview.Hide();
    }
}
