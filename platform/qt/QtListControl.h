#pragma once

#include "platform/qt/QtControl.h"
#include "platform/qt/QtListModel.h"
#include "platform/qt/QtListView.h"

/// A list of check boxes. While it is not Visible it stays on the screen and keeps the focus, but
/// does not paint: the program hides it only for bulk changes.
class QtListControl : public QtControl<ListControl, QtListView> {
public:
    QtListControl(QWidget* parent, const QString& name);
    ~QtListControl() override;

    bool Visible() const override { return m_visible; }
    void SetVisible(bool visible) override;

    int ListCount() const override { return m_model.Count(); }
    QString List(int row) const override;
    int ListIndex() const override { return m_view->CurrentRow(); }
    void SetListIndex(int row) override;
    bool Selected(int row) const override;
    void SetSelected(int row, bool ticked) override;
    int SelCount() const override { return m_model.TickedCount(); }
    void Clear() override { Fill({}); }
    void Fill(std::vector<ListRow> rows) override;

private:
    QtListModel m_model;
    QtListView* m_view;
    bool m_visible = true;
    /// Checks have changed while the list did not paint.
    bool m_ticksChanged = false;
    /// The checks that a screen reader knows of, from row m_firstHeard on.
    std::vector<bool> m_heardTicks;
    int m_firstHeard = 0;

    void Require(int row) const;
    void Tick(int row, bool ticked);
    void UserPressed(int row, bool onCheckBox);
    void UserWantsMenu(int row, const MouseState& mouse);
    void UserToggles(int row);
    void Listen();
    void RememberTicksInView();
    void AnnounceTicksInView();
};
