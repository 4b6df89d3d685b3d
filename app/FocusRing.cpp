#include "app/FocusRing.h"

#include "platform/qt/BoxPalette.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {

constexpr double ContrastOfSign = 3;

/// Whether the control has the focus and the user moves the focus with keys.
bool IsReached(const QStyleOption& option) {
    const QStyle::State reached = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    return (option.state & reached) == reached;
}

void DrawRing(const QStyleOption& option, QPainter& painter) {
    const QColor ground = option.palette.color(QPalette::Window);
    QColor ring = option.palette.color(QPalette::Highlight);
    // The style draws its mark in this shade.
    if (Contrast(ring.darker(125), ground) >= ContrastOfSign) {
        return;
    }
    constexpr int mostSteps = 30;
    for (int step = 0; step < mostSteps && Contrast(ring, ground) < ContrastOfSign; ++step) {
        ring = ring.lighter(110);
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(ring);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.restore();
}

} // namespace

FocusRing::FocusRing() : QProxyStyle(QStyleFactory::create(u"fusion"_s)) {
}

void FocusRing::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isBox = element == PE_FrameLineEdit;
    const bool isMarked = element == PE_PanelButtonCommand || element == PE_FrameFocusRect;
    if ((isBox && option->state.testFlag(State_HasFocus)) || (isMarked && IsReached(*option))) {
        DrawRing(*option, *painter);
    }
}

void FocusRing::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox && IsReached(*option)) {
        DrawRing(*option, *painter);
    }
}
