#include "app/PreviewWindow.h"

namespace {

/// A dialog, which stays above its owner, but can be maximised.
constexpr Qt::WindowFlags OwnedDialog = Qt::Dialog | Qt::WindowTitleHint |
                                        Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
                                        Qt::WindowCloseButtonHint;

} // namespace

PreviewWindow::PreviewWindow(QWidget* owner, FileSystem& files)
    : m_window(owner, QStringLiteral("frmPreview"), OwnedDialog),
      m_player(m_window.Widget(), QStringLiteral("QTControl"), files), m_controls{m_window,
                                                                                  m_player} {
    m_window.Resize = [this] { m_player.Move(0, 0, m_window.Width(), m_window.Height()); };
}
