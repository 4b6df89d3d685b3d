#include "app/Layout.h"

#include "app/ListWidths.h"
#include "platform/ScopeGuard.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double GapPixels = 3;
constexpr double FloorPixels = 21;
constexpr double LeastListPixels = 19;

double Right(const Control& control) {
    return control.Left() + control.Width();
}

} // namespace

Layout::Layout(WindowManager& windowManager, const MusicLibrary& library,
               std::function<bool()> isCopying, TextFitting& textFitting, Form1Controls& controls)
    : m_windowManager(windowManager), m_library(library), m_isCopying(std::move(isCopying)),
      m_textFitting(textFitting), m_controls(controls) {
}

double Layout::Px(double pixels) const {
    return pixels * m_windowManager.TwipsPerPixelX();
}

/// The right edge of the controls.
double Layout::RightEdge() const {
    return m_controls.Form1.Width() - m_design.RightMargin;
}

HandleControl& Layout::HandleAt(int Index) const {
    return Index == 0 ? m_controls.Handle0 : m_controls.Handle1;
}

void Layout::KeepDesign() {
    const double right = m_controls.Form1.Width();
    const double bottom = m_controls.Form1.Height();
    const double listsBottom = m_controls.lstArtists.Top() + m_controls.lstArtists.Height();
    m_design.RightMargin = right - Right(m_controls.lstSongs);
    m_design.BottomMargin = bottom - listsBottom;
    m_design.DeviceWidth = m_controls.Picture2.Width();
    m_design.SearchWidth = m_controls.txtSearch.Width();
    m_design.SearchEndToRight = right - Right(m_controls.txtSearch);
    m_design.FindToRight = right - m_controls.cmdSearch.Left();
    m_design.ClearToRight = right - m_controls.cmdClear.Left();
    m_design.LabelGap = m_controls.txtSearch.Left() - Right(m_controls.lblSearch);
    m_design.CopyToRight = right - m_controls.cmdCopy.Left();
    m_design.CopyBelowLists = m_controls.cmdCopy.Top() - listsBottom;
    m_design.DestinationInset =
        m_controls.frmDestination.Width() - m_controls.pctDestination.Width();
    m_design.BrowseToRight = m_controls.pctDestination.Width() - m_controls.cmdBrowse.Left();
    m_design.BoxToBrowse = m_controls.cmdBrowse.Left() - Right(m_controls.txtDestination);
    m_design.ProgressToBottom = bottom - m_controls.prgCopy.Top();
    m_design.MessageToBottom = bottom - m_controls.lblMessage.Top();

    // Even the narrowest window leaves usable room for the device, search and destination boxes,
    // and keeps the copy button in its frame.
    const double searchRow = 3 * m_controls.cmdSearch.Width() - RoomForBoxes(0);
    const double inDestination =
        std::max(m_design.DestinationInset / 2 + m_design.CopyToRight,
                 m_design.DestinationInset + m_controls.cmdBrowse.Width() + m_design.BoxToBrowse +
                     m_design.BrowseToRight + m_design.RightMargin);
    m_design.MinimumWidth = std::max(searchRow, m_controls.frmDestination.Left() + inDestination);
    m_controls.Form1.SetMinimumSize(m_design.MinimumWidth, m_controls.lstArtists.Top() +
                                                               m_design.BottomMargin +
                                                               Px(LeastListPixels));
}

void Layout::LayOutLists() {
    const double left = m_controls.lstArtists.Left();
    const double right = RightEdge();
    const double least = Px(FloorPixels);
    const double gap = Px(GapPixels);
    // A position that was saved on a larger screen, or edited by hand, may be anywhere.
    const double second = std::clamp(m_controls.Handle1.Left(), left + 2 * least + gap,
                                     std::max(left + 2 * least + gap, right - least - gap));
    const double first = std::clamp(m_controls.Handle0.Left(), left + least,
                                    std::max(left + least, second - least - gap));
    PlaceLists(first - left, second - first - gap, right - second - gap);
}

void Layout::Handle_MouseDown(int Index) {
    Dragging = true;
    HandleAt(Index).SetBackColor(SystemColor::DarkShadow3D);
}

void Layout::Handle_MouseUp(int Index) {
    Dragging = false;
    HandleAt(Index).SetBackColor(SystemColor::ButtonFace);
}

void Layout::Handle_MouseMove(int Index, double X) {
    if (!Dragging) {
        return;
    }
    const double position = HandleAt(Index).Left() + X;
    if (Index == 0) {
        DragFirst(position);
        m_controls.Handle0.SetLeft(Right(m_controls.lstArtists));
    } else {
        DragSecond(position);
        m_controls.Handle1.SetLeft(Right(m_controls.lstAlbums));
    }
}

// The first handle stops 20 pixels short of the right-hand side, the second one 22. The difference
// is intentional: behind the second one there is no third list with a gap of its own.

void Layout::DragFirst(double position) {
    ListControl& left = m_controls.lstArtists;
    ListControl& right = m_controls.lstAlbums;
    const double songs = m_controls.lstSongs.Left();
    if (position < Right(left)) {
        if (position > left.Left() + Px(20)) {
            left.SetWidth(position - left.Left());
            right.SetWidth(songs - position - Px(6));
            right.SetLeft(position + Px(3));
        } else {
            left.SetWidth(Px(21));
            right.SetWidth(songs - left.Left() - left.Width() - Px(6));
            right.SetLeft(Right(left) + Px(3));
        }
    } else if (position > right.Left()) {
        if (position < Right(right) - Px(20)) {
            left.SetWidth(position - left.Left() - Px(3));
            right.SetWidth(songs - position - Px(3));
            right.SetLeft(position);
        } else {
            left.SetWidth(songs - left.Left() - Px(27));
            right.SetWidth(Px(21));
            right.SetLeft(songs - Px(24));
        }
    }
}

void Layout::DragSecond(double position) {
    ListControl& left = m_controls.lstAlbums;
    ListControl& right = m_controls.lstSongs;
    const double edge = Right(right);
    if (position < Right(left)) {
        if (position > left.Left() + Px(20)) {
            left.SetWidth(position - left.Left());
            right.SetWidth(edge - position - Px(3));
            right.SetLeft(position + Px(3));
        } else {
            left.SetWidth(Px(21));
            right.SetWidth(edge - left.Left() - left.Width() - Px(3));
            right.SetLeft(Right(left) + Px(3));
        }
    } else if (position > right.Left()) {
        if (position < edge - Px(22)) {
            left.SetWidth(position - left.Left() - Px(3));
            right.SetWidth(edge - position);
            right.SetLeft(position);
        } else {
            left.SetWidth(edge - Right(m_controls.lstArtists) - Px(27));
            right.SetWidth(Px(21));
            right.SetLeft(Right(left) + Px(3));
        }
    }
}

void Layout::Form_Resize() {
    Window& window = m_controls.Form1;
    if (window.Minimized()) {
        if (m_isCopying() || m_library.LoadingMusic) {
            window.SetCaption(m_controls.lblMessage.Caption());
        }
        return;
    }
    if (m_resizing) {
        return;
    }
    m_resizing = true;
    ScopeGuard resizing([this] { m_resizing = false; });
    WasMaximized = window.State() == WindowState::Maximized;
    window.SetCaption(u"Songlift"_s);

    if (window.Width() < m_design.MinimumWidth) {
        window.SetSize(m_design.MinimumWidth, window.Height());
    }
    const double top = m_controls.lstArtists.Top();
    if (Px(LeastListPixels) > window.Height() - m_design.BottomMargin - top) {
        window.SetSize(window.Width(), top + m_design.BottomMargin + Px(LeastListPixels));
    }
    // The tab strip alone runs to the window's edge, without a margin. This is intentional: its
    // line does not seem to break off.
    m_controls.tbsFilter.SetWidth(window.Width() - m_controls.tbsFilter.Left());
    ShareListWidth();
    PlaceSearchRow();
    PlaceDestination();
    PlaceHeights();
    PlaceBelowLists();
}

void Layout::ShareListWidth() {
    const double available = RightEdge() - m_controls.lstArtists.Left() - Px(2 * GapPixels);
    ListWidths widths{static_cast<float>(m_controls.lstArtists.Width()),
                      static_cast<float>(m_controls.lstAlbums.Width()),
                      static_cast<float>(m_controls.lstSongs.Width())};
    widths.Rescale(static_cast<float>(available));
    widths.RaiseToFloor(static_cast<float>(m_windowManager.TwipsPerPixelX()));
    PlaceLists(widths.Artists, widths.Albums, widths.Songs);
}

void Layout::PlaceLists(double w1, double w2, double w3) {
    const double gap = Px(GapPixels);
    m_controls.lstArtists.SetWidth(w1);
    m_controls.lstAlbums.SetLeft(Right(m_controls.lstArtists) + gap);
    m_controls.lstAlbums.SetWidth(w2);
    m_controls.lstSongs.SetLeft(Right(m_controls.lstAlbums) + gap);
    m_controls.lstSongs.SetWidth(w3);
    m_controls.Handle0.SetLeft(Right(m_controls.lstArtists));
    m_controls.Handle1.SetLeft(Right(m_controls.lstAlbums));
}

/// The room that a window of that width leaves for the device box and the search box together.
double Layout::RoomForBoxes(double width) const {
    return width - m_controls.Picture2.Left() - Px(2 * GapPixels) - m_controls.lblSearch.Width() -
           m_design.LabelGap - m_design.SearchEndToRight;
}

/// In a narrow window the two boxes shrink in proportion; everything else is as wide as its
/// caption.
void Layout::PlaceSearchRow() {
    const double right = m_controls.Form1.Width();
    const double share =
        std::min(1.0, RoomForBoxes(right) / (m_design.DeviceWidth + m_design.SearchWidth));
    m_controls.Picture2.SetWidth(m_design.DeviceWidth * share);
    m_controls.Combo1.SetWidth(m_controls.Picture2.Width() - m_controls.Combo1.Left());
    m_controls.txtSearch.SetWidth(m_design.SearchWidth * share);
    m_controls.txtSearch.SetLeft(right - m_design.SearchEndToRight - m_controls.txtSearch.Width());
    m_controls.lblSearch.SetLeft(m_controls.txtSearch.Left() - m_design.LabelGap -
                                 m_controls.lblSearch.Width());
    m_controls.cmdSearch.SetLeft(right - m_design.FindToRight);
    m_controls.cmdClear.SetLeft(right - m_design.ClearToRight);
}

void Layout::PlaceDestination() {
    const double right = m_controls.Form1.Width();
    m_controls.cmdCopy.SetLeft(right - m_design.CopyToRight);
    m_controls.frmDestination.SetWidth(RightEdge() - m_controls.frmDestination.Left());
    m_controls.pctDestination.SetWidth(m_controls.frmDestination.Width() -
                                       m_design.DestinationInset);
    m_controls.cmdBrowse.SetLeft(m_controls.pctDestination.Width() - m_design.BrowseToRight);
    m_controls.txtDestination.SetWidth(m_controls.cmdBrowse.Left() - m_design.BoxToBrowse -
                                       m_controls.txtDestination.Left());
    Raise(DestinationResized);
}

void Layout::PlaceHeights() {
    const double height =
        m_controls.Form1.Height() - m_controls.lstArtists.Top() - m_design.BottomMargin;
    for (Control* control :
         {static_cast<Control*>(&m_controls.lstArtists),
          static_cast<Control*>(&m_controls.lstAlbums), static_cast<Control*>(&m_controls.lstSongs),
          static_cast<Control*>(&m_controls.Handle0), static_cast<Control*>(&m_controls.Handle1)}) {
        control->SetHeight(height);
    }
    m_controls.pctNoDevice.Move(m_controls.lstArtists.Left(), m_controls.lstArtists.Top(),
                                RightEdge() - m_controls.lstArtists.Left(), height);
    m_controls.prgCopy.SetWidth(RightEdge() - m_controls.prgCopy.Left());
}

void Layout::PlaceBelowLists() {
    const double listsBottom = m_controls.lstArtists.Top() + m_controls.lstArtists.Height();
    m_controls.frmDP.SetTop(listsBottom);
    m_controls.frmTN.SetTop(listsBottom);
    m_controls.frmDestination.SetTop(listsBottom);
    m_controls.cmdCopy.SetTop(listsBottom + m_design.CopyBelowLists);

    const double bottom = m_controls.Form1.Height();
    m_controls.prgCopy.SetTop(bottom - m_design.ProgressToBottom);
    m_controls.lblMessage.SetTop(bottom - m_design.MessageToBottom);
    m_controls.lblFullName.SetTop(m_controls.lblMessage.Top());
    m_controls.Divider.Move(m_controls.lblFullName.Left() - Px(7), m_controls.lblMessage.Top(),
                            m_controls.Divider.Width(), m_controls.lblMessage.Height());
    m_controls.lblFullName.SetWidth(RightEdge() - m_controls.lblFullName.Left());
    m_textFitting.AdjustTextAgain();
}

double LargestWidth(WindowManager& windowManager) {
    return windowManager.WorkArea().Width * 0.95;
}

double LargestHeight(WindowManager& windowManager) {
    return windowManager.WorkArea().Height * 0.9;
}
