#include "platform/qt/QtContainers.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace {

constexpr int RoomAboveCaption = 6;
constexpr int RoomBelowCaption = 12;
constexpr int RoomBesideCaption = 8;

/// Adds room above the caption: frames begin where the control above them ends, and their captions
/// would touch it.
class SpacedFrame : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent*) override {
        QStyleOptionGroupBox option;
        initStyleOption(&option);
        option.rect.setHeight(height() - RoomAboveCaption);
        QStylePainter painter(this);
        painter.translate(0,
                          RoomAboveCaption); // styles draw captions at the top, whatever the area
        painter.drawComplexControl(QStyle::CC_GroupBox, option);
    }
};

} // namespace

QtFrameControl::QtFrameControl(QWidget* parent, const QString& name, const QString& caption)
    : QtControl(new SpacedFrame(caption, parent), name) {
    const QSize own = Widget()->fontMetrics().size(Qt::TextShowMnemonic, caption);
    SetWidth((own.width() + RoomBesideCaption) * Twips::PerPixelX());
    SetHeight((RoomAboveCaption + own.height() + RoomBelowCaption) * Twips::PerPixelY());
}

QtLineControl::QtLineControl(QWidget* parent, const QString& name)
    : QtControl(new QFrame(parent), name) {
    Widget()->setFrameStyle(QFrame::VLine | QFrame::Plain);
    Widget()->setForegroundRole(QPalette::Mid);
    Widget()->setMinimumWidth(1);
}
