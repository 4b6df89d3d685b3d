#include "browser/TextFitting.h"

using namespace Qt::StringLiterals;

namespace {

QString Dots() {
    return u"..."_s;
}

} // namespace

TextFitting::TextFitting(WindowManager& windowManager, const FittingControls& controls)
    : m_windowManager(windowManager), m_controls(controls) {
}

void TextFitting::AdjustText(const QString& Text) {
    m_fullText = Text;
    QString shown = Text;
    // A text exactly as wide as the label stays whole; a shortened one must be narrower, so that
    // all of the dots can be seen.
    if (m_controls.Form1.TextWidth(Text) <= m_controls.lblFullName.Width()) {
        m_controls.lblFullName.SetToolTip(QString());
    } else {
        m_controls.lblFullName.SetToolTip(Text);
        shown = Shortened(Text);
    }
    m_controls.lblFullName.SetCaption(shown.replace(u'&', u"&&"_s));
}

void TextFitting::ForgetText() {
    m_fullText.clear();
    m_controls.lblFullName.SetToolTip(QString());
    m_controls.lblFullName.SetCaption(QString());
}

void TextFitting::AdjustTextAgain() {
    AdjustText(QString(m_fullText));
}

/// The longest beginning of `text` that is narrower than the label together with "...", but never
/// less than the dots alone. Taking off one letter at a time would hang on a name of many thousands
/// of letters, so the length is found by bisection.
QString TextFitting::Shortened(const QString& text) const {
    const double width = m_controls.lblFullName.Width();
    const auto fits = [&](qsizetype length) {
        return m_controls.Form1.TextWidth(text.left(length) + Dots()) < width;
    };
    qsizetype fitting = 0;
    qsizetype tooLong = text.size();
    while (tooLong - fitting > 1) {
        const qsizetype middle = fitting + (tooLong - fitting) / 2;
        (fits(middle) ? fitting : tooLong) = middle;
    }
    if (fitting > 0 && text[fitting - 1].isHighSurrogate()) {
        --fitting; // half a letter cannot be shown
    }
    return text.left(fitting) + Dots();
}

void TextFitting::lstArtists_MouseMove() {
    TakeFocusFromNeighbours(m_controls.lstArtists);
}

void TextFitting::lstAlbums_MouseMove() {
    TakeFocusFromNeighbours(m_controls.lstAlbums);
}

void TextFitting::lstSongs_MouseMove() {
    TakeFocusFromNeighbours(m_controls.lstSongs);
}

/// The keyboard and the wheel act on the list under the mouse; a text box, a button or another
/// program keeps the focus.
void TextFitting::TakeFocusFromNeighbours(ListControl& list) {
    if (m_windowManager.GetActiveWindow() != m_controls.Form1.Handle()) {
        return;
    }
    const WindowHandle focus = m_windowManager.GetFocus();
    for (const Control* neighbour : {static_cast<const Control*>(&m_controls.lstArtists),
                                     static_cast<const Control*>(&m_controls.lstAlbums),
                                     static_cast<const Control*>(&m_controls.lstSongs),
                                     static_cast<const Control*>(&m_controls.tbsFilter)}) {
        if (neighbour != &list && neighbour->Handle() == focus) {
            list.SetFocus();
            return;
        }
    }
}

void TextFitting::lstArtists_Scroll() {
    m_controls.lstArtists.SetFocus();
}

void TextFitting::lstAlbums_Scroll() {
    m_controls.lstAlbums.SetFocus();
}

void TextFitting::lstSongs_Scroll() {
    m_controls.lstSongs.SetFocus();
}

void TextFitting::lstSongs_MouseDown(const MouseState& mouse) {
    constexpr int RightButton = 2;
    if (mouse.Button == RightButton && m_controls.lstSongs.ListIndex() > 0) {
        m_controls.mnuPopup.PopUp(m_controls.lstSongs, mouse.X, mouse.Y);
    }
}
