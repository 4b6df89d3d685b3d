#pragma once

#include "platform/Controls.h"
#include "platform/qt/ControlWidget.h"
#include "platform/qt/QtFrames.h"
#include "platform/qt/Twips.h"

#include <QPointer>

/// The common part of all controls that are shown by a widget. The control and the widget's parent
/// may be deleted in either order; the first one deletes the widget.
template <class Interface, class WidgetType>
class QtControl : public Interface {
public:
    /// Takes over `widget`, at the size that suits it.
    QtControl(WidgetType* widget, const QString& name) : m_widget(widget) {
        ControlWidget::Adopt(*widget, name);
        const QSize size = widget->sizeHint().expandedTo(QSize(0, 0));
        QtControl::Move(0, 0, size.width() * Twips::PerPixelX(),
                        size.height() * Twips::PerPixelY());
        widget->show();
    }
    ~QtControl() override { delete m_widget.data(); }
    QtControl(const QtControl&) = delete;
    QtControl& operator=(const QtControl&) = delete;

    /// For settings that the window's builder makes once: accessible names, tab order, parents.
    WidgetType* Widget() const { return m_widget; }

    bool Enabled() const override { return m_enabled; }
    void SetEnabled(bool enabled) override {
        m_enabled = enabled;
        QtFrames::Call([this, enabled] { m_widget->setEnabled(enabled); });
    }
    bool Visible() const override { return m_visible; }
    void SetVisible(bool visible) override {
        m_visible = visible;
        QtFrames::Call([this, visible] { m_widget->setVisible(visible); });
    }

    double Left() const override { return m_left; }
    double Top() const override { return m_top; }
    double Width() const override { return m_width; }
    double Height() const override { return m_height; }
    void Move(double left, double top, double width, double height) override {
        m_left = left;
        m_top = top;
        m_width = width;
        m_height = height;
        ControlWidget::Place(*m_widget, left, top, width, height);
    }

    void SetFocus() override {
        if (m_enabled && Visible()) {
            QtFrames::Call([this] { m_widget->setFocus(Qt::OtherFocusReason); });
        }
    }
    WindowHandle Handle() const override { return ControlWidget::HandleOf(*m_widget); }
    QString ToolTip() const override { return m_widget->toolTip(); }
    void SetToolTip(const QString& text) override { m_widget->setToolTip(text); }
    void Refresh() override { ControlWidget::PaintNow(*m_widget); }

private:
    QPointer<WidgetType> m_widget;
    bool m_enabled = true;
    bool m_visible = true;
    double m_left = 0;
    double m_top = 0;
    double m_width = 0;
    double m_height = 0;
};
