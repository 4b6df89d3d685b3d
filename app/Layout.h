#pragma once

#include "app/Form1Controls.h"
#include "browser/TextFitting.h"
#include "library/MusicLibrary.h"
#include "platform/WindowManager.h"

#include <functional>

/// The main window's layout and its two splitters. All positions are in twips; margins are whole
/// screen pixels.
class Layout {
public:
    /// `isCopying` is asked at each resize: while a job runs, a minimised window shows its
    /// progress.
    Layout(WindowManager& windowManager, const MusicLibrary& library,
           std::function<bool()> isCopying, TextFitting& textFitting, Form1Controls& controls);

    /// Raised after the width of the destination box has changed.
    Event DestinationResized;

    /// A handle is being dragged.
    bool Dragging = false;
    /// The window is maximised, or was before it was minimised.
    bool WasMaximized = false;

    /// Takes the present distances between the controls as the design, which every resize keeps.
    void KeepDesign();
    /// Lays the three lists out between the handles.
    void LayOutLists();
    void Form_Resize();

    void Handle_MouseDown(int Index);
    void Handle_MouseMove(int Index, double X);
    void Handle_MouseUp(int Index);

private:
    /// Distances that the window keeps from its design.
    struct Design {
        double MinimumWidth = 0;
        double RightMargin = 0, BottomMargin = 0;
        double DeviceWidth = 0, SearchWidth = 0;
        double SearchEndToRight = 0, FindToRight = 0, ClearToRight = 0;
        double CopyToRight = 0, CopyBelowLists = 0, BrowseToRight = 0, BoxToBrowse = 0;
        double DestinationInset = 0;
        double ProgressToBottom = 0, MessageToBottom = 0, LabelGap = 0;
    };

    double Px(double pixels) const;
    double RightEdge() const;
    HandleControl& HandleAt(int Index) const;
    void DragFirst(double position);
    void DragSecond(double position);
    void ShareListWidth();
    void PlaceLists(double w1, double w2, double w3);
    double RoomForBoxes(double width) const;
    void PlaceSearchRow();
    void PlaceDestination();
    void PlaceHeights();
    void PlaceBelowLists();

    WindowManager& m_windowManager;
    const MusicLibrary& m_library;
    std::function<bool()> m_isCopying;
    TextFitting& m_textFitting;
    Form1Controls& m_controls;
    Design m_design;
    /// Form_Resize corrects the window's size, which resizes it again.
    bool m_resizing = false;
};

/// The largest inner width, in twips, that the program itself gives the main window: with the
/// desktop's frame around it, the whole window still fits on the primary screen.
double LargestWidth(WindowManager& windowManager);
double LargestHeight(WindowManager& windowManager);
