#include "platform/qt/QtListControl.h"

#include "platform/RuntimeError.h"

QtListControl::QtListControl(QWidget* parent, const QString& name)
    : QtControl(new QtListView(parent), name), m_view(Widget()) {
    m_view->setModel(&m_model);
    Listen();
}

QtListControl::~QtListControl() {
    // The view is deleted before the model. Otherwise it would lose its rows first, and report
    // that.
    delete Widget();
}

void QtListControl::Listen() {
    m_view->RowPressed = [this](int row, bool onCheckBox) {
        QtFrames::Handle([&] { UserPressed(row, onCheckBox); });
    };
    m_view->RowToggled = [this](int row) { QtFrames::Handle([&] { UserToggles(row); }); };
    m_view->MenuPressed = [this](int row, const MouseState& mouse) {
        QtFrames::Handle([&] { UserWantsMenu(row, mouse); });
    };
    m_view->OtherButtonPressed = [this](const MouseState& mouse) {
        QtFrames::Raise(MouseDown, mouse);
    };
    m_view->MouseMoved = [this](const MouseState& mouse) { QtFrames::Raise(MouseMove, mouse); };
    m_view->Scrolled = [this] { QtFrames::Raise(Scroll); };
    m_view->CurrentRowMoved = [this] { QtFrames::Raise(Click); };
}

void QtListControl::Require(int row) const {
    if (row < 0 || row >= ListCount()) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
}

void QtListControl::SetVisible(bool visible) {
    if (visible == m_visible) {
        return;
    }
    m_visible = visible;
    if (!visible) {
        RememberTicksInView();
    }
    ControlWidget::SetMayHaveFocus(*m_view, visible);
    m_view->setUpdatesEnabled(visible);
    if (visible && std::exchange(m_ticksChanged, false)) {
        AnnounceTicksInView();
    }
}

QString QtListControl::List(int row) const {
    Require(row);
    return m_model.Row(row).Text;
}

void QtListControl::SetListIndex(int row) {
    if (row != -1) {
        Require(row);
    }
    m_view->MakeCurrent(row, true);
    Raise(Click);
}

bool QtListControl::Selected(int row) const {
    Require(row);
    return m_model.Row(row).Ticked;
}

void QtListControl::SetSelected(int row, bool ticked) {
    Require(row);
    if (m_model.Row(row).Ticked != ticked) {
        Tick(row, ticked);
    }
}

void QtListControl::Tick(int row, bool ticked) {
    m_model.SetTicked(row, ticked);
    if (m_visible) {
        m_model.TickChanged(row);
        if (m_view->IsHeard()) {
            m_view->AnnounceTick(row);
        }
    } else {
        m_ticksChanged = true;
    }
    if (ItemCheck) {
        ItemCheck(row);
    }
}

void QtListControl::Fill(std::vector<ListRow> rows) {
    m_heardTicks.clear();
    m_view->ForgetPress();
    m_model.Fill(std::move(rows));
    m_view->LayOutNow();
    m_view->scrollToTop();
}

void QtListControl::UserPressed(int row, bool onCheckBox) {
    const bool moves = row != ListIndex();
    m_view->MakeCurrent(row, false);
    // On the check box of the current row, Click comes later, after the tick.
    if (moves || !onCheckBox) {
        Raise(Click);
    }
}

void QtListControl::UserWantsMenu(int row, const MouseState& mouse) {
    if (row >= 0 && row != ListIndex()) {
        m_view->MakeCurrent(row, false);
        Raise(Click);
    }
    if (MouseDown) {
        MouseDown(mouse);
    }
}

void QtListControl::UserToggles(int row) {
    // A Click handler may fill the list again, with other rows.
    const int fillings = m_view->Fillings();
    if (row != ListIndex()) {
        m_view->MakeCurrent(row, false);
        Raise(Click);
    }
    if (m_view->Fillings() != fillings) {
        return;
    }
    Tick(row, !m_model.Row(row).Ticked);
    Raise(Click);
}

void QtListControl::RememberTicksInView() {
    m_heardTicks.clear();
    if (!m_view->IsHeard()) {
        return;
    }
    const auto [first, last] = m_view->RowsInView();
    m_firstHeard = first;
    for (int row = first; row <= last; ++row) {
        m_heardTicks.push_back(m_model.Row(row).Ticked);
    }
}

void QtListControl::AnnounceTicksInView() {
    for (size_t i = 0; i < m_heardTicks.size(); ++i) {
        const int row = m_firstHeard + int(i);
        if (m_model.Row(row).Ticked != m_heardTicks[i]) {
            m_view->AnnounceTick(row);
        }
    }
}
