#pragma once

#include "platform/Controls.h"
#include "platform/Window.h"

/// The label of the full name, the window in whose font it is measured, and the controls around the
/// lists that the mouse moves over.
struct FittingControls {
    Window& Form1;
    ListControl& lstArtists;
    ListControl& lstAlbums;
    ListControl& lstSongs;
    TabsControl& tbsFilter;
    LabelControl& lblFullName;
    PopupMenu& mnuPopup;
};

/// The full name under the lists, the focus that follows the mouse among the lists, and the song
/// list's menu.
class TextFitting {
public:
    TextFitting(WindowManager& windowManager, const FittingControls& controls);

    /// Shows `Text` in lblFullName, shortened with "..." where it does not fit; the whole text is
    /// then the label's tooltip.
    void AdjustText(const QString& Text);
    /// Empties lblFullName, and forgets the text for good.
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
    FittingControls m_controls;
    QString m_fullText;
};
