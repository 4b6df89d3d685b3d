#pragma once

#include "platform/WindowManager.h"

#include <QString>

#include <functional>
#include <vector>

/// The controls of a window, as the rules of the program see them. Positions and sizes are in twips
/// (1,440 to the inch), relative to the containing window or frame. Rows are 0-based, and -1 is no
/// row; a row, an entry or a tab that does not exist raises error 9. Events are the public function
/// objects; an unset event does nothing. A control that is disabled or not visible ignores the
/// user, not the program.

/// The mouse over a control. Positions are in twips from the control's top left corner.
struct MouseState {
    /// 1 left, 2 right, 4 middle, 0 none.
    int Button = 0;
    /// 1 Shift, 2 Control, 4 Alt, added up.
    int Shift = 0;
    double X = 0;
    double Y = 0;
};

using Event = std::function<void()>;
using MouseEvent = std::function<void(const MouseState&)>;

/// Calls `event` if it is set.
inline void Raise(const Event& event) {
    if (event) {
        event();
    }
}

class Control {
public:
    virtual ~Control() = default;

    virtual bool Enabled() const = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool Visible() const = 0;
    virtual void SetVisible(bool visible) = 0;

    virtual double Left() const = 0;
    virtual double Top() const = 0;
    virtual double Width() const = 0;
    virtual double Height() const = 0;
    virtual void Move(double left, double top, double width, double height) = 0;
    void SetLeft(double left) { Move(left, Top(), Width(), Height()); }
    void SetTop(double top) { Move(Left(), top, Width(), Height()); }
    void SetWidth(double width) { Move(Left(), Top(), width, Height()); }
    void SetHeight(double height) { Move(Left(), Top(), Width(), height); }

    /// Gives the keyboard focus; a disabled control does not take it.
    virtual void SetFocus() = 0;
    virtual WindowHandle Handle() const = 0;
    virtual QString ToolTip() const = 0;
    virtual void SetToolTip(const QString& text) = 0;
    /// Paints pending changes at once.
    virtual void Refresh() = 0;
};

struct ListRow {
    QString Text;
    bool Ticked = false;
};

/// A list of rows with check boxes. While it is not Visible it repaints nothing, so bulk changes
/// are enclosed in two calls of SetVisible.
class ListControl : public Control {
public:
    /// Raised by the user and by SetListIndex.
    Event Click;
    /// Raised with the row whose check has changed, by the user and by SetSelected; the new state
    /// can already be read. When the user ticks a row, that row has become the current one before,
    /// and Click follows.
    std::function<void(int row)> ItemCheck;
    MouseEvent MouseMove;
    /// Raised before a left press makes its row current, and after a right press has done so.
    MouseEvent MouseDown;
    /// Raised when the user has scrolled, not when the program has.
    Event Scroll;

    virtual int ListCount() const = 0;
    virtual QString List(int row) const = 0;
    /// The current row.
    virtual int ListIndex() const = 0;
    /// Makes a row current (-1 for none) and raises Click before it returns, even when the row was
    /// current already.
    virtual void SetListIndex(int row) = 0;
    /// Whether the row is ticked.
    virtual bool Selected(int row) const = 0;
    /// Ticks or unticks a row; raises ItemCheck before it returns when that changes the row.
    virtual void SetSelected(int row, bool ticked) = 0;
    /// Number of ticked rows. Costs no counting.
    virtual int SelCount() const = 0;

    /// Removes all rows, and with them the current row. Raises nothing.
    virtual void Clear() = 0;
    /// Replaces all rows at once; no row is current afterwards. Raises nothing.
    virtual void Fill(std::vector<ListRow> rows) = 0;
};

/// A drop-down list of which one entry can be chosen.
class ComboControl : public Control {
public:
    /// Raised when the user is about to open the list.
    Event DropDown;
    /// Raised by the user's choice and by SetText to an entry.
    Event Click;

    virtual int ListCount() const = 0;
    virtual QString List(int index) const = 0;
    virtual void Clear() = 0;
    virtual void AddItem(const QString& text) = 0;
    virtual QString Text() const = 0;
    /// Chooses the entry with that text and raises Click before it returns, even when it was chosen
    /// already. Without such an entry none is chosen, the text becomes empty, and nothing is
    /// raised.
    virtual void SetText(const QString& text) = 0;
};

class TextControl : public Control {
public:
    /// Raised when the text has changed, by the user or by SetText.
    Event Change;
    Event GotFocus;
    Event LostFocus;

    virtual QString Text() const = 0;
    virtual void SetText(const QString& text) = 0;
    /// Selects `length` characters from the 0-based position `start` on.
    virtual void Select(int start, int length) = 0;
    /// Offers the folders of the file system while the user types a path.
    virtual void CompletePaths() = 0;
};

class LabelControl : public Control {
public:
    Event Click;

    /// The text as it was set; "&" before a letter marks its access key, "&&" stands for "&".
    virtual QString Caption() const = 0;
    virtual void SetCaption(const QString& caption) = 0;
    /// Takes the width that its caption needs.
    virtual void SizeToCaption() = 0;
};

class ButtonControl : public Control {
public:
    Event Click;

    virtual QString Caption() const = 0;
    virtual void SetCaption(const QString& caption) = 0;
    /// Whether the Enter key presses this button.
    virtual bool Default() const = 0;
    virtual void SetDefault(bool isDefault) = 0;
};

class CheckControl : public Control {
public:
    /// Raised by the user, not by SetValue.
    Event Click;

    virtual QString Caption() const = 0;
    /// Whether it is ticked.
    virtual bool Value() const = 0;
    virtual void SetValue(bool ticked) = 0;
};

class TabsControl : public Control {
public:
    /// Raised by the user's choice of a tab and by Select.
    Event Click;

    virtual QString SelectedCaption() const = 0;
    /// Selects the tab of a 0-based position and raises Click before it returns.
    virtual void Select(int index) = 0;
};

/// A bar that shows Value out of Max; a change too small to be seen costs nothing.
class ProgressControl : public Control {
public:
    virtual float Max() const = 0;
    virtual void SetMax(float max) = 0;
    virtual float Value() const = 0;
    virtual void SetValue(float value) = 0;
};

class PictureControl : public Control {
public:
    /// Shows the picture of an iPod.
    virtual void ShowDevice() = 0;
    virtual void Clear() = 0;
};

/// Why the lists have nothing to show: no iPod is connected, none of the connected ones is chosen,
/// or the chosen one is empty or could not be read.
enum class NoDeviceReason { NoneConnected, NoneChosen, NoMusic, NotRead };

/// Says, in place of the lists, what to do while they have nothing to show.
class NoDeviceControl : public Control {
public:
    virtual void Tell(NoDeviceReason reason) = 0;
};

enum class SystemColor { ButtonFace, DarkShadow3D };

/// A bar between two lists that the user drags.
class HandleControl : public Control {
public:
    MouseEvent MouseDown;
    MouseEvent MouseMove;
    MouseEvent MouseUp;

    virtual SystemColor BackColor() const = 0;
    virtual void SetBackColor(SystemColor color) = 0;
};

class PopupMenu {
public:
    virtual ~PopupMenu() = default;
    /// Opens the menu at a place in twips from the control's top left corner: where the mouse was
    /// pressed, or at the row for which the menu key was pressed. Returns before a choice is made.
    virtual void PopUp(const Control& control, double x, double y) = 0;
};

class MenuEntry {
public:
    Event Click;
};

class TimerControl {
public:
    Event Timer;

    virtual ~TimerControl() = default;
    virtual bool Enabled() const = 0;
    virtual void SetEnabled(bool enabled) = 0;
};

/// Plays one file of music or video.
class MediaPlayerControl : public Control {
public:
    /// Raised when the player changes its size after SetSource, because a slow device delivered
    /// late what the file contains.
    Event SizeChanged;

    virtual QString Source() const = 0;
    /// Opens and plays the file of that path, and takes the size that suits it: the film's own size
    /// (or less, on a smaller screen), or that of a small player for music. An empty path stops at
    /// once and closes the file.
    virtual void SetSource(const QString& path) = 0;
};
