#include "app/PreviewWindow.h"

using namespace Qt::StringLiterals;

namespace {

/// A dialog, which stays above its owner, but can be maximised.
constexpr Qt::WindowFlags OwnedDialog = Qt::Dialog | Qt::WindowTitleHint |
                                        Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
                                        Qt::WindowCloseButtonHint;

} // namespace

PreviewWindow::PreviewWindow(QWidget* owner, FileSystem& files)
    : m_window(owner, u"frmPreview"_s, OwnedDialog),
      m_player(m_window.Widget(), u"QTControl"_s, files), m_controls{m_window, m_player} {
    m_window.Resize = [this] { m_player.Move(0, 0, m_window.Width(), m_window.Height()); };
}
