#pragma once

#include "platform/Controls.h"
#include "tests/fakes/FakeFaults.h"
#include "tests/fakes/FakeFocus.h"

#include <QStringList>

#include <map>
#include <memory>
#include <utility>
#include <vector>

/// Controls without a screen. What a rule does to a control goes through the interface; what the
/// user does goes through the functions whose names begin with "User", which a disabled or hidden
/// control, and one in a disabled or hidden container, ignores. The public fields count and record
/// what happened.

template <class Interface>
class FakeControlBase : public Interface {
public:
    /// The frame or picture box that holds the control; the window itself when null.
    const Control* Container = nullptr;
    /// How often Enabled and Visible were really changed.
    int EnabledChanges = 0;
    int VisibleChanges = 0;
    int RefreshCount = 0;

    explicit FakeControlBase(std::shared_ptr<FakeFocus> focus = std::make_shared<FakeFocus>())
        : m_focus(std::move(focus)), m_handle(FakeFocus::NewHandle()) {}
    ~FakeControlBase() override { m_focus->Forget(m_handle); }
    FakeControlBase(const FakeControlBase&) = delete;
    FakeControlBase& operator=(const FakeControlBase&) = delete;

    bool Enabled() const override { return m_enabled; }
    void SetEnabled(bool enabled) override {
        FakeFaults::Call();
        EnabledChanges += enabled != m_enabled ? 1 : 0;
        m_enabled = enabled;
        GiveUpFocusUnlessUsable();
    }
    bool Visible() const override { return m_visible; }
    void SetVisible(bool visible) override {
        FakeFaults::Call();
        VisibleChanges += visible != m_visible ? 1 : 0;
        m_visible = visible;
        GiveUpFocusUnlessUsable();
    }

    double Left() const override { return m_left; }
    double Top() const override { return m_top; }
    double Width() const override { return m_width; }
    double Height() const override { return m_height; }
    void Move(double left, double top, double width, double height) override {
        FakeFaults::Call();
        m_left = left;
        m_top = top;
        m_width = width;
        m_height = height;
    }

    void SetFocus() override {
        FakeFaults::Call();
        if (Usable()) {
            m_focus->Give(
                m_handle, [this] { OnGotFocus(); }, [this] { OnLostFocus(); });
        }
    }
    bool HasFocus() const { return m_focus->Current() == m_handle; }
    bool NobodyHasFocus() const { return m_focus->Current() == 0; }
    WindowHandle Handle() const override { return m_handle; }
    QString ToolTip() const override { return m_toolTip; }
    void SetToolTip(const QString& text) override {
        FakeFaults::Call();
        m_toolTip = text;
    }
    void Refresh() override {
        FakeFaults::Call();
        ++RefreshCount;
    }

    /// Whether the user can act on the control.
    bool Usable() const {
        return m_enabled && m_visible &&
               (Container == nullptr || (Container->Enabled() && Container->Visible()));
    }

protected:
    /// The control gets the focus that a click of the user gives; false when the user cannot act on
    /// it.
    bool UserReaches() {
        const bool usable = Usable();
        SetFocus();
        return usable;
    }
    virtual void OnGotFocus() {}
    virtual void OnLostFocus() {}

private:
    std::shared_ptr<FakeFocus> m_focus;
    WindowHandle m_handle;
    QString m_toolTip;
    bool m_enabled = true;
    bool m_visible = true;
    double m_left = 0;
    double m_top = 0;
    double m_width = 0;
    double m_height = 0;

    void GiveUpFocusUnlessUsable() {
        if (!m_enabled || !m_visible) {
            m_focus->TakeFrom(m_handle);
        }
    }
};

using FakeControl = FakeControlBase<Control>;

class FakeListControl : public FakeControlBase<ListControl> {
public:
    using FakeControlBase::FakeControlBase;

    int FillCount = 0;
    int ClearCount = 0;
    /// Changes of rows, checks and the current row made while the list was visible, each of which
    /// would repaint a real list.
    int ChangesWhileVisible = 0;

    /// A list hidden for bulk changes has its focus back when it is shown, unless another control
    /// has it by then.
    void SetVisible(bool visible) override;
    int ListCount() const override { return int(m_rows.size()); }
    QString List(int row) const override;
    int ListIndex() const override { return m_listIndex; }
    void SetListIndex(int row) override;
    bool Selected(int row) const override;
    void SetSelected(int row, bool ticked) override;
    int SelCount() const override { return m_selCount; }
    void Clear() override;
    void Fill(std::vector<ListRow> rows) override;

    /// All row texts in order.
    QStringList Texts() const;
    /// The ticked rows in order.
    std::vector<int> TickedRows() const;

    /// Clicks the text of a row: MouseDown is raised, the row becomes current, and Click is raised,
    /// also when it was current already.
    void UserClick(int row);
    /// Clicks the check box of a row whose check differs from `ticked`: MouseDown is raised, the
    /// row becomes current (Click, unless it was), the check changes (ItemCheck), and Click
    /// follows. A Click handler that changes the rows ends it there.
    void UserTick(int row, bool ticked);
    /// UserTick to the other state.
    void UserToggle(int row) { UserTick(row, !Selected(row)); }
    /// Moves the current row by `rows` with the arrow keys, as far as there are rows; Click is
    /// raised when it moved.
    void UserArrow(int rows);
    /// Presses the space bar: UserToggle on the current row, if there is one.
    void UserSpace();
    /// Presses the right mouse button on a row: it becomes current (Click, unless it was), then
    /// MouseDown is raised.
    void UserRightClick(int row);
    void UserMouseMove(const MouseState& mouse);
    void UserScroll();

private:
    std::vector<ListRow> m_rows;
    int m_listIndex = -1;
    int m_selCount = 0;
    bool m_hadFocus = false;

    void Require(int row) const;
    void Changed() { ChangesWhileVisible += Visible() ? 1 : 0; }
    void Check(int row, bool ticked);
    void Toggle(int row);
    void PressMouse(int button, int row);
};

class FakeComboControl : public FakeControlBase<ComboControl> {
public:
    using FakeControlBase::FakeControlBase;

    int ListCount() const override { return int(m_entries.size()); }
    QString List(int index) const override;
    void Clear() override;
    void AddItem(const QString& text) override {
        FakeFaults::Call();
        m_entries.append(text);
    }
    QString Text() const override;
    void SetText(const QString& text) override;

    const QStringList& Entries() const { return m_entries; }

    /// Opens the list.
    void UserDropDown();
    /// Chooses an entry of the open list, the chosen one included.
    void UserChoose(int index);

private:
    QStringList m_entries;
    int m_chosen = -1;
};

class FakeTextControl : public FakeControlBase<TextControl> {
public:
    using FakeControlBase::FakeControlBase;

    /// What is marked; the caret stands at the end of it.
    int SelectionStart = 0;
    int SelectionLength = 0;
    bool CompletesPaths = false;

    QString Text() const override { return m_text; }
    void SetText(const QString& text) override;
    void Select(int start, int length) override;
    void CompletePaths() override { CompletesPaths = true; }

    /// Types at the caret, over what is marked; every character raises Change.
    void UserType(const QString& text);
    /// Pastes over the whole text, which raises Change once if the text changes.
    void UserReplace(const QString& text);
    /// Clicks into the box.
    void UserEnter() { UserReaches(); }

protected:
    void OnGotFocus() override { Raise(GotFocus); }
    void OnLostFocus() override { Raise(LostFocus); }

private:
    QString m_text;
};

template <class Interface>
class FakeCaptionControl : public FakeControlBase<Interface> {
public:
    using FakeControlBase<Interface>::FakeControlBase;

    /// Every caption that differed from the one before, in order.
    QStringList Captions;

    QString Caption() const override { return m_caption; }
    void SetCaption(const QString& caption) override {
        FakeFaults::Call();
        if (caption != m_caption) {
            m_caption = caption;
            Captions.append(caption);
        }
    }

private:
    QString m_caption;
};

class FakeLabelControl : public FakeCaptionControl<LabelControl> {
public:
    using FakeCaptionControl::FakeCaptionControl;

    /// Width of a character in twips, for SizeToCaption.
    double CharacterWidth = 100;

    void SizeToCaption() override;

    void UserClick();
};

class FakeButtonControl : public FakeCaptionControl<ButtonControl> {
public:
    using FakeCaptionControl::FakeCaptionControl;

    bool Default() const override { return m_default; }
    void SetDefault(bool isDefault) override {
        FakeFaults::Call();
        m_default = isDefault;
    }

    void UserPress();

private:
    bool m_default = false;
};

class FakeCheckControl : public FakeControlBase<CheckControl> {
public:
    using FakeControlBase::FakeControlBase;

    QString FixedCaption;

    QString Caption() const override { return FixedCaption; }
    bool Value() const override { return m_ticked; }
    void SetValue(bool ticked) override { m_ticked = ticked; }

    /// Clicks the box, which ticks or unticks it and raises Click.
    void UserPress();

private:
    bool m_ticked = false;
};

class FakeTabsControl : public FakeControlBase<TabsControl> {
public:
    explicit FakeTabsControl(std::shared_ptr<FakeFocus> focus = std::make_shared<FakeFocus>());

    QStringList Captions;

    QString SelectedCaption() const override { return Captions.value(m_selected); }
    void Select(int index) override;

    /// Clicks a tab, the selected one included.
    void UserSelectTab(int index);

private:
    int m_selected = 0;
};

class FakeProgressControl : public FakeControlBase<ProgressControl> {
public:
    using FakeControlBase::FakeControlBase;

    /// Every value set, in order.
    std::vector<float> Values;

    float Max() const override { return m_max; }
    void SetMax(float max) override {
        FakeFaults::Call();
        m_max = max;
    }
    float Value() const override { return m_value; }
    void SetValue(float value) override;

private:
    float m_max = 100;
    float m_value = 0;
};

class FakeNoDeviceControl : public FakeControlBase<NoDeviceControl> {
public:
    using FakeControlBase::FakeControlBase;

    NoDeviceReason Told = NoDeviceReason::NoneConnected;

    void Tell(NoDeviceReason reason) override {
        FakeFaults::Call();
        Told = reason;
    }
};

class FakePictureControl : public FakeControlBase<PictureControl> {
public:
    using FakeControlBase::FakeControlBase;

    bool ShowsDevice = false;

    void ShowDevice() override {
        FakeFaults::Call();
        ShowsDevice = true;
    }
    void Clear() override {
        FakeFaults::Call();
        ShowsDevice = false;
    }
};

class FakeHandleControl : public FakeControlBase<HandleControl> {
public:
    using FakeControlBase::FakeControlBase;

    SystemColor BackColor() const override { return m_color; }
    void SetBackColor(SystemColor color) override {
        FakeFaults::Call();
        m_color = color;
    }

    /// The left mouse button at `x` twips from the handle's left edge.
    void UserMouseDown(double x);
    void UserMouseMove(double x);
    void UserMouseUp(double x);

private:
    SystemColor m_color = SystemColor::ButtonFace;
};

class FakeTimerControl : public TimerControl {
public:
    bool Enabled() const override { return m_enabled; }
    void SetEnabled(bool enabled) override {
        FakeFaults::Call();
        m_enabled = enabled;
    }

    /// Lets the interval pass: raises Timer if the timer is enabled.
    void Elapse();

private:
    bool m_enabled = false;
};

class FakePopupMenu : public PopupMenu {
public:
    int PopUpCount = 0;
    /// Where it was opened last.
    WindowHandle Over = 0;
    double X = 0;
    double Y = 0;
    /// What the user does with the open menu.
    Event WhileOpen;

    void PopUp(const Control& control, double x, double y) override;
};

class FakeMediaPlayerControl : public FakeControlBase<MediaPlayerControl> {
public:
    using FakeControlBase::FakeControlBase;

    /// Every source set, in order, "" for a stop.
    QStringList Sources;
    /// Width and height in twips that a file takes; a file not named here is music.
    std::map<QString, std::pair<double, double>> FilmSizes;
    static constexpr double MusicWidth = 4800;
    static constexpr double MusicHeight = 600;

    QString Source() const override { return m_source; }
    void SetSource(const QString& path) override;

private:
    QString m_source;
};
