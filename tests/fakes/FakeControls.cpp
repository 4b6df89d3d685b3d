#include "tests/fakes/FakeControls.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

void RequireIndex(qsizetype index, qsizetype count) {
    if (index < 0 || index >= count) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
}

} // namespace

void FakeListControl::Require(int row) const {
    RequireIndex(row, ListCount());
}

void FakeListControl::SetVisible(bool visible) {
    if (!visible) {
        m_hadFocus = m_hadFocus || HasFocus();
    }
    FakeControlBase::SetVisible(visible);
    if (visible && std::exchange(m_hadFocus, false) && NobodyHasFocus()) {
        SetFocus();
    }
}

QString FakeListControl::List(int row) const {
    Require(row);
    return m_rows[size_t(row)].Text;
}

void FakeListControl::SetListIndex(int row) {
    FakeFaults::Call();
    if (row != -1) {
        Require(row);
    }
    m_listIndex = row;
    Changed();
    Raise(Click);
}

bool FakeListControl::Selected(int row) const {
    Require(row);
    return m_rows[size_t(row)].Ticked;
}

void FakeListControl::SetSelected(int row, bool ticked) {
    FakeFaults::Call();
    Require(row);
    if (Selected(row) != ticked) {
        Check(row, ticked);
    }
}

void FakeListControl::Check(int row, bool ticked) {
    m_rows[size_t(row)].Ticked = ticked;
    m_selCount += ticked ? 1 : -1;
    Changed();
    if (ItemCheck) {
        ItemCheck(row);
    }
}

void FakeListControl::Clear() {
    FakeFaults::Call();
    ++ClearCount;
    m_rows.clear();
    m_listIndex = -1;
    m_selCount = 0;
    Changed();
}

void FakeListControl::Fill(std::vector<ListRow> rows) {
    FakeFaults::Call();
    ++FillCount;
    m_rows = std::move(rows);
    m_listIndex = -1;
    m_selCount = int(
        std::count_if(m_rows.begin(), m_rows.end(), [](const ListRow& row) { return row.Ticked; }));
    Changed();
}

QStringList FakeListControl::Texts() const {
    QStringList texts;
    for (const ListRow& row : m_rows) {
        texts.append(row.Text);
    }
    return texts;
}

std::vector<int> FakeListControl::TickedRows() const {
    std::vector<int> ticked;
    for (int row = 0; row < ListCount(); ++row) {
        if (Selected(row)) {
            ticked.push_back(row);
        }
    }
    return ticked;
}

void FakeListControl::PressMouse(int button, int row) {
    if (MouseDown) {
        constexpr double rowHeight = 225;
        MouseDown({.Button = button, .X = 300, .Y = (row + 0.5) * rowHeight});
    }
}

void FakeListControl::UserClick(int row) {
    Require(row);
    if (UserReaches()) {
        PressMouse(1, row);
        SetListIndex(row);
    }
}

void FakeListControl::UserTick(int row, bool ticked) {
    if (Selected(row) != ticked && UserReaches()) {
        PressMouse(1, row);
        Toggle(row);
    }
}

void FakeListControl::UserSpace() {
    if (m_listIndex != -1 && UserReaches()) {
        Toggle(m_listIndex);
    }
}

void FakeListControl::Toggle(int row) {
    const int changes = FillCount + ClearCount;
    if (m_listIndex != row) {
        SetListIndex(row);
    }
    if (FillCount + ClearCount == changes) {
        Check(row, !Selected(row));
        Raise(Click);
    }
}

void FakeListControl::UserArrow(int rows) {
    const int target = std::clamp(m_listIndex + rows, 0, std::max(0, ListCount() - 1));
    if (UserReaches() && ListCount() > 0 && target != m_listIndex) {
        SetListIndex(target);
    }
}

void FakeListControl::UserRightClick(int row) {
    Require(row);
    if (!UserReaches()) {
        return;
    }
    if (m_listIndex != row) {
        SetListIndex(row);
    }
    PressMouse(2, row);
}

void FakeListControl::UserMouseMove(const MouseState& mouse) {
    if (Usable() && MouseMove) {
        MouseMove(mouse);
    }
}

void FakeListControl::UserScroll() {
    if (Usable()) {
        Raise(Scroll);
    }
}

QString FakeComboControl::List(int index) const {
    RequireIndex(index, m_entries.size());
    return m_entries[index];
}

void FakeComboControl::Clear() {
    FakeFaults::Call();
    m_entries.clear();
    m_chosen = -1;
}

QString FakeComboControl::Text() const {
    return m_entries.value(m_chosen);
}

void FakeComboControl::SetText(const QString& text) {
    FakeFaults::Call();
    m_chosen = int(m_entries.indexOf(text));
    if (m_chosen != -1) {
        Raise(Click);
    }
}

void FakeComboControl::UserDropDown() {
    if (UserReaches()) {
        Raise(DropDown);
    }
}

void FakeComboControl::UserChoose(int index) {
    RequireIndex(index, m_entries.size());
    if (UserReaches()) {
        m_chosen = index;
        Raise(Click);
    }
}

void FakeTextControl::SetText(const QString& text) {
    FakeFaults::Call();
    if (text == m_text) {
        return;
    }
    m_text = text;
    Select(int(text.size()), 0);
    Raise(Change);
}

void FakeTextControl::Select(int start, int length) {
    FakeFaults::Call();
    SelectionStart = std::clamp(start, 0, int(m_text.size()));
    SelectionLength = std::clamp(length, 0, int(m_text.size()) - SelectionStart);
}

void FakeTextControl::UserType(const QString& text) {
    for (const QChar character : text) {
        // A Change handler may have disabled the box.
        if (!UserReaches()) {
            return;
        }
        QString typed = m_text;
        typed.replace(SelectionStart, SelectionLength, QString(character));
        const int caret = SelectionStart + 1;
        const bool changed = typed != m_text;
        m_text = typed;
        Select(caret, 0);
        if (changed) {
            Raise(Change);
        }
    }
}

void FakeTextControl::UserReplace(const QString& text) {
    if (UserReaches()) {
        SetText(text);
    }
}

void FakeLabelControl::SizeToCaption() {
    FakeFaults::Call();
    int characters = 0;
    const QString caption = Caption();
    for (qsizetype i = 0; i < caption.size(); ++i) {
        const bool isMark = caption[i] == u'&';
        i += isMark ? 1 : 0;
        characters += i < caption.size() ? 1 : 0;
    }
    SetWidth(characters * CharacterWidth);
}

void FakeLabelControl::UserClick() {
    // A label takes no focus.
    if (Usable()) {
        Raise(Click);
    }
}

void FakeButtonControl::UserPress() {
    if (UserReaches()) {
        Raise(Click);
    }
}

void FakeCheckControl::UserPress() {
    if (UserReaches()) {
        m_ticked = !m_ticked;
        Raise(Click);
    }
}

FakeTabsControl::FakeTabsControl(std::shared_ptr<FakeFocus> focus)
    : FakeControlBase(std::move(focus)), Captions{u"All Files"_s, u"Audio"_s, u"Video"_s} {
}

void FakeTabsControl::Select(int index) {
    FakeFaults::Call();
    RequireIndex(index, Captions.size());
    m_selected = index;
    Raise(Click);
}

void FakeTabsControl::UserSelectTab(int index) {
    RequireIndex(index, Captions.size());
    if (UserReaches()) {
        Select(index);
    }
}

void FakeProgressControl::SetValue(float value) {
    FakeFaults::Call();
    m_value = value;
    Values.push_back(value);
}

void FakeHandleControl::UserMouseDown(double x) {
    if (Usable() && MouseDown) {
        MouseDown({.Button = 1, .X = x});
    }
}

void FakeHandleControl::UserMouseMove(double x) {
    if (Usable() && MouseMove) {
        MouseMove({.Button = 1, .X = x});
    }
}

void FakeHandleControl::UserMouseUp(double x) {
    if (Usable() && MouseUp) {
        MouseUp({.Button = 1, .X = x});
    }
}

void FakeTimerControl::Elapse() {
    if (m_enabled) {
        Raise(Timer);
    }
}

void FakePopupMenu::PopUp(const Control& control, double x, double y) {
    FakeFaults::Call();
    ++PopUpCount;
    Over = control.Handle();
    X = x;
    Y = y;
    Raise(WhileOpen);
}

void FakeMediaPlayerControl::SetSource(const QString& path) {
    FakeFaults::Call();
    m_source = path;
    Sources.append(path);
    if (path.isEmpty()) {
        return;
    }
    const auto film = FilmSizes.find(path);
    const auto [width, height] =
        film != FilmSizes.end() ? film->second : std::pair(MusicWidth, MusicHeight);
    Move(Left(), Top(), width, height);
}
