#include "app/DesignLayout.h"

#include "app/Layout.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

double Right(const Control& control) {
    return control.Left() + control.Width();
}

double Bottom(const Control& control) {
    return control.Top() + control.Height();
}

/// The design of the main window. Lengths are written in pixels and handed to the controls in
/// twips.
class Design {
public:
    Design(Form1Controls& controls, WindowManager& windowManager)
        : m_controls(controls), m_windowManager(windowManager),
          m_pixel(windowManager.TwipsPerPixelX()), m_lineHeight(controls.lblMessage.Height()),
          m_titleHeight(controls.frmDP.Height()) {}

    void LayOut() {
        LayOutDeviceRow();
        LayOutSearchRow();
        LayOutBottomUp();
        LayOutLists();
        m_controls.Form1.SetSize(Width(), Height());
    }

private:
    double Px(double pixels) const { return pixels * m_pixel; }
    double Margin() const { return Px(10); }
    double Gap() const { return Px(6); }
    double Width() const { return std::min(Px(980), LargestWidth(m_windowManager)); }
    double Height() const { return std::min(Px(660), LargestHeight(m_windowManager)); }
    double RightEdge() const { return Width() - Margin(); }

    /// Puts a control at the given left edge, vertically centred on `middle`.
    static void PlaceBeside(Control& control, double left, double middle) {
        control.Move(left, middle - control.Height() / 2, control.Width(), control.Height());
    }

    void LayOutDeviceRow() {
        const double height = Px(40);
        m_controls.Picture2.Move(Margin(), Margin(), Px(340), height);
        m_controls.Picture1.Move(0, 0, Px(32), height);
        m_controls.Combo1.SetWidth(m_controls.Picture2.Width() - Px(40));
        PlaceBeside(m_controls.Combo1, Px(40), height / 2);
    }

    void LayOutSearchRow() {
        const double middle = m_controls.Picture2.Top() + m_controls.Picture2.Height() / 2;
        PlaceBeside(m_controls.cmdClear, RightEdge() - m_controls.cmdClear.Width(), middle);
        PlaceBeside(m_controls.cmdSearch,
                    m_controls.cmdClear.Left() - Gap() - m_controls.cmdSearch.Width(), middle);
        m_controls.txtSearch.SetWidth(Px(230));
        PlaceBeside(m_controls.txtSearch,
                    m_controls.cmdSearch.Left() - Gap() - m_controls.txtSearch.Width(), middle);
        PlaceBeside(m_controls.lblSearch,
                    m_controls.txtSearch.Left() - Gap() - m_controls.lblSearch.Width(), middle);
    }

    /// The lists take the height that the rows below them leave.
    void LayOutBottomUp() {
        const double labelsTop = Height() - Px(6) - m_lineHeight;
        const double messageWidth =
            m_controls.Form1.TextWidth(u"Selected: 0000.00 GB of 0000.00 GB"_s);
        m_controls.lblMessage.Move(Margin(), labelsTop, messageWidth, m_lineHeight);
        m_controls.lblFullName.Move(Right(m_controls.lblMessage) + Px(14), labelsTop, 0,
                                    m_lineHeight);
        m_controls.lblFullName.SetWidth(RightEdge() - m_controls.lblFullName.Left());
        m_controls.Divider.Move(m_controls.lblFullName.Left() - Px(7), labelsTop, Px(1),
                                m_lineHeight);
        const double progressHeight = Px(14);
        m_controls.prgCopy.Move(Margin(), labelsTop - Gap() - progressHeight,
                                RightEdge() - Margin(), progressHeight);
        LayOutFrames(m_controls.prgCopy.Top() - Px(8));
    }

    void LayOutFrames(double bottom) {
        const double inset = Px(10);
        const double lineHeight = m_controls.chkArtist.Height() + Px(2);
        const double height = m_titleHeight + 3 * lineHeight + Px(6);
        const double top = bottom - height;

        const double foldersWidth =
            FrameWidth({&m_controls.chkArtist, &m_controls.chkAlbum}, m_controls.frmDP, inset);
        m_controls.frmDP.Move(Margin(), top, foldersWidth, height);
        Stack({&m_controls.chkArtist, &m_controls.chkAlbum, &m_controls.chkGenre}, inset,
              m_titleHeight, lineHeight);

        const double namesWidth = FrameWidth(
            {&m_controls.chkArtistName, &m_controls.chkAlbumName, &m_controls.chkTrackNum},
            m_controls.frmTN, inset);
        m_controls.frmTN.Move(Right(m_controls.frmDP) + Gap(), top, namesWidth, height);
        Stack({&m_controls.chkArtistName, &m_controls.chkAlbumName, &m_controls.chkTrackNum}, inset,
              m_titleHeight, lineHeight);

        const double left = Right(m_controls.frmTN) + Gap();
        m_controls.frmDestination.Move(left, top, RightEdge() - left, height);
        LayOutDestination(inset);
    }

    static double FrameWidth(std::initializer_list<const CheckControl*> boxes, const Control& frame,
                             double inset) {
        double width = frame.Width(); // a frame's own width is that of its caption
        for (const CheckControl* box : boxes) {
            width = std::max(width, box->Width() + 2 * inset);
        }
        return width;
    }

    static void Stack(std::initializer_list<CheckControl*> boxes, double left, double top,
                      double lineHeight) {
        for (CheckControl* box : boxes) {
            box->Move(left, top, box->Width(), box->Height());
            top += lineHeight;
        }
    }

    void LayOutDestination(double inset) {
        const double boxHeight =
            std::max(m_controls.txtDestination.Height(), m_controls.cmdBrowse.Height());
        m_controls.pctDestination.Move(inset, m_titleHeight,
                                       m_controls.frmDestination.Width() - 2 * inset, boxHeight);
        PlaceBeside(m_controls.cmdBrowse,
                    m_controls.pctDestination.Width() - m_controls.cmdBrowse.Width(),
                    boxHeight / 2);
        m_controls.txtDestination.SetWidth(m_controls.cmdBrowse.Left() - Gap());
        PlaceBeside(m_controls.txtDestination, 0, boxHeight / 2);

        // The button lies over the frame and not inside it, since it must stay enabled while a job
        // disables the frame.
        const double width = m_controls.cmdCopy.Width() + Px(16);
        const double height = m_controls.cmdCopy.Height() + Px(4);
        const double rowTop = m_controls.frmDestination.Top() + m_titleHeight + boxHeight;
        const double room = Bottom(m_controls.frmDestination) - rowTop;
        m_controls.cmdCopy.Move(Right(m_controls.frmDestination) - inset - width,
                                rowTop + (room - height) / 2, width, height);
    }

    void LayOutLists() {
        const double handle = Px(3);
        m_controls.tbsFilter.Move(Margin(), Bottom(m_controls.Picture2) + Px(8), Width() - Margin(),
                                  m_controls.tbsFilter.Height());
        const double top = Bottom(m_controls.tbsFilter) + Px(2);
        const double height = m_controls.frmDP.Top() - top;
        const double width = RightEdge() - Margin() - 2 * handle;
        m_controls.lstArtists.Move(Margin(), top, width * 0.27, height);
        m_controls.Handle0.Move(Right(m_controls.lstArtists), top, handle, height);
        m_controls.lstAlbums.Move(Right(m_controls.Handle0), top, width * 0.31, height);
        m_controls.Handle1.Move(Right(m_controls.lstAlbums), top, handle, height);
        m_controls.lstSongs.Move(Right(m_controls.Handle1), top,
                                 RightEdge() - Right(m_controls.Handle1), height);
    }

    Form1Controls& m_controls;
    WindowManager& m_windowManager;
    double m_pixel;
    double m_lineHeight;
    /// A frame's own height, on entry, is that of its caption.
    double m_titleHeight;
};

} // namespace

void LayOutDesign(Form1Controls& controls, WindowManager& windowManager) {
    Design(controls, windowManager).LayOut();
}
