#include "platform/qt/QtListDelegate.h"

#include "platform/qt/BoxPalette.h"
#include "platform/qt/ShownText.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

/// Keys act on the list whose current row is bright; in the other lists it is only tinted.
QPalette WithTintedRows(QPalette palette, bool isEnabled) {
    const float share = isEnabled ? 0.35F : 0.15F;
    const QColor bright = palette.color(QPalette::Highlight);
    const QColor ground = palette.color(QPalette::Base);
    const auto mixed = [share](float one, float other) {
        return one * share + other * (1 - share);
    };
    palette.setColor(QPalette::Highlight, QColor::fromRgbF(mixed(bright.redF(), ground.redF()),
                                                           mixed(bright.greenF(), ground.greenF()),
                                                           mixed(bright.blueF(), ground.blueF())));
    palette.setColor(QPalette::HighlightedText, palette.color(QPalette::Text));
    return palette;
}

} // namespace

QStyleOptionViewItem QtListDelegate::Option(const QListView& view, const QModelIndex& index) const {
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.rect = view.visualRect(index);
    option.widget = &view;
    option.decorationSize = view.iconSize();
    initStyleOption(&option, index);
    return option;
}

void QtListDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->palette = WithVisibleBoxes(option->palette);
    if (!option->state.testFlag(QStyle::State_HasFocus)) {
        option->palette =
            WithTintedRows(option->palette, option->state.testFlag(QStyle::State_Enabled));
    }
}

QRect QtListDelegate::CheckArea(const QListView& view, const QModelIndex& index) const {
    const QStyleOptionViewItem option = Option(view, index);
    const QRect box =
        view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
    QRect area = option.rect;
    if (box.center().x() < area.center().x()) {
        area.setRight(box.right());
    } else {
        area.setLeft(box.left());
    }
    return area;
}

bool QtListDelegate::IsElided(const QListView& view, const QModelIndex& index) const {
    const QStyleOptionViewItem option = Option(view, index);
    const QRect text = view.style()->subElementRect(QStyle::SE_ItemViewItemText, &option, &view);
    const int margin = view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, &view) + 1;
    return option.fontMetrics.horizontalAdvance(option.text) > text.width() - 2 * margin;
}

void QtListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    QStyleOptionViewItem row(option);
    initStyleOption(&row, index);
    // The style's focus rectangle would cover the text with a tint.
    row.state.setFlag(QStyle::State_HasFocus, false);
    row.widget->style()->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
    const QStyle::State reached = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    if ((option.state & reached) == reached) {
        painter->setPen(option.palette.color(QPalette::HighlightedText));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}

QString QtListDelegate::displayText(const QVariant& value, const QLocale& locale) const {
    Q_UNUSED(locale)
    constexpr char16_t rightToLeftIsolate = 0x2067;
    const QString text = ShownText::OneLine(value.toString());
    // The punctuation and the "..." of a name that is read from right to left follow that direction
    // too, while the name stays left-aligned like all others.
    return text.isRightToLeft() ? QChar(rightToLeftIsolate) + text : text;
}

QSize QtListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    Q_UNUSED(index)
    // Rows are as wide as the list and all of one height, whatever their text or its script. An
    // even height takes whole pixels of the screen at a scale of 1.5, too.
    const int box =
        option.widget->style()->pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget);
    const double height = std::max(1.2 * option.fontMetrics.height(), box + 6.0);
    return {1, 2 * qRound(height / 2)};
}
