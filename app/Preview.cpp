#include "app/Preview.h"

#include "platform/ScopeGuard.h"

using namespace Qt::StringLiterals;

Preview::Preview(LinkedLists& lists, PatientFileSystem& files, Messages& messages,
                 const SongControls& controls, PreviewControls& preview)
    : m_lists(lists), m_files(files), m_messages(messages), m_controls(controls),
      m_preview(preview) {
}

void Preview::mnuPreview_Click() {
    const int row = m_controls.lstSongs.ListIndex();
    if (row < 1 || m_lists.Building || !m_controls.lstSongs.Enabled()) {
        return; // while the menu was open, the row went away or a job began
    }
    try {
        Play(row);
    } catch (const OperationStopped&) {
        return; // the window is about to close
    }
}

void Preview::Play(int row) {
    const QString path = m_lists.Track(row).Location;
    if (!m_files.FileExists(path)) {
        m_messages.Show(u"File not found: \"%1\""_s.arg(path), u"Error"_s, MessageButtons::OK,
                        MessageIcon::Exclamation);
        return;
    }
    ScopeGuard pointer([this] { m_controls.Form1.SetMousePointer(MousePointer::Default); });
    m_controls.Form1.SetMousePointer(MousePointer::Hourglass);
    ScopeGuard failed([this] { m_preview.QTControl.SetSource(QString()); });
    m_preview.QTControl.SetSource(path);
    QTControl_SizeChanged();
    m_preview.frmPreview.SetCaption(m_controls.lstSongs.List(row));
    m_preview.frmPreview.Show();
    failed.Dismiss();
    pointer.Run();
}

void Preview::QTControl_SizeChanged() {
    m_preview.frmPreview.SetSize(m_preview.QTControl.Width(), m_preview.QTControl.Height());
}

void Preview::Form_QueryUnload(bool& Cancel, UnloadMode Mode) {
    m_preview.QTControl.SetSource(QString());
    if (Mode == UnloadMode::User) {
        Cancel = true;
        m_preview.frmPreview.Hide();
        // The next preview gets its player's size even where the user maximised this one.
        m_preview.frmPreview.SetState(WindowState::Normal);
    }
}
