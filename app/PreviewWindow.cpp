#include "app/PreviewWindow.h"

PreviewWindow::PreviewWindow(QWidget* owner, FileSystem& files)
    : m_window(owner, QStringLiteral("frmPreview")),
      m_player(m_window.Widget(), QStringLiteral("QTControl"), files), m_controls{m_window,
                                                                                  m_player} {
    m_window.Resize = [this] { m_player.Move(0, 0, m_window.Width(), m_window.Height()); };
}
