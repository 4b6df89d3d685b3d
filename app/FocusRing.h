#pragma once

#include <QProxyStyle>

/// Qt's own style, whose mark of the control that has the keyboard focus is too dim on dark
/// desktops: there it is drawn again in a lighter shade.
class FocusRing : public QProxyStyle {
public:
    FocusRing();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
};
