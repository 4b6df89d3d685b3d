#pragma once

#include "platform/Form1Controls.h"
#include "platform/WindowManager.h"

/// The full name under the lists, the focus that follows the mouse among the lists, and the song
/// list's menu.
class TextFitting {
public:
    TextFitting(WindowManager& windowManager, Form1Controls& controls);

    /// Shows `Text` in lblFullName, shortened with "..." where it does not fit; the whole text is
    /// then the label's tooltip.
    void AdjustText(const QString& Text);
    /// Empties lblFullName, which nothing brings back.
    void ForgetText();
    /// Fits the text last shown again, after the label's width has changed.
    void AdjustTextAgain();

    void lstArtists_MouseMove();
    void lstAlbums_MouseMove();
    void lstSongs_MouseMove();
    void lstArtists_Scroll();
    void lstAlbums_Scroll();
    void lstSongs_Scroll();
    void lstSongs_MouseDown(const MouseState& mouse);

private:
    QString Shortened(const QString& text) const;
    void TakeFocusFromNeighbours(ListControl& list);

    WindowManager& m_windowManager;
    Form1Controls& m_controls;
    QString m_fullText;
};
