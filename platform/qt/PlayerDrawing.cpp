#include "platform/qt/PlayerDrawing.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

// The grid that the player is drawn on: one unit is one pixel in the main window at scale 1.
constexpr qreal GridWidth = 24;
constexpr qreal GridHeight = 38;

/// Turns units of the grid into positions that lie on the pixels of the screen.
class Grid {
public:
    Grid(const QPainter& painter, const QRectF& area)
        : m_ratio(painter.device()->devicePixelRatioF()),
          m_unit(std::min(area.width() / GridWidth, area.height() / GridHeight)),
          m_left(area.center().x() - m_unit * GridWidth / 2),
          m_top(area.center().y() - m_unit * GridHeight / 2) {}

    qreal Length(qreal units) const { return units * m_unit; }
    /// The width of a line: a unit, and never less than a pixel.
    qreal Line() const { return std::max<qreal>(1, std::round(m_unit * m_ratio)) / m_ratio; }
    QPointF Point(qreal x, qreal y) const { return {m_left + x * m_unit, m_top + y * m_unit}; }
    QRectF Area(qreal x, qreal y, qreal width, qreal height) const {
        const qreal left = Snapped(m_left + x * m_unit);
        const qreal top = Snapped(m_top + y * m_unit);
        return {left, top, Snapped(m_left + (x + width) * m_unit) - left,
                Snapped(m_top + (y + height) * m_unit) - top};
    }

private:
    qreal Snapped(qreal position) const { return std::round(position * m_ratio) / m_ratio; }

    qreal m_ratio;
    qreal m_unit;
    qreal m_left;
    qreal m_top;
};

QPainterPath Triangle(QPointF tip, QPointF one, QPointF other) {
    QPainterPath path(tip);
    path.lineTo(one);
    path.lineTo(other);
    path.closeSubpath();
    return path;
}

void DrawNote(QPainter& painter, const Grid& grid) {
    QPainterPath note;
    note.setFillRule(Qt::WindingFill);
    note.addEllipse(grid.Point(10.4, 14.2), grid.Length(2.4), grid.Length(1.9));
    note.addRect(grid.Area(11.8, 6.2, 1, 8));
    note.addRect(grid.Area(11.8, 6.2, 4, 2));
    painter.drawPath(note);
}

/// Back, play and forward.
void DrawButtons(QPainter& painter, const Grid& grid) {
    painter.drawPath(Triangle(grid.Point(15.2, 28), grid.Point(9.8, 24.6), grid.Point(9.8, 31.4)));
    painter.drawPath(Triangle(grid.Point(4, 28), grid.Point(7, 26), grid.Point(7, 30)));
    painter.drawPath(Triangle(grid.Point(20, 28), grid.Point(17, 26), grid.Point(17, 30)));
}

} // namespace

void DrawPlayer(QPainter& painter, const QRectF& area, const QPalette& palette) {
    const Grid grid(painter, area);
    const qreal half = grid.Line() / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette.color(QPalette::WindowText), grid.Line()));
    painter.setBrush(palette.color(QPalette::Button));
    painter.drawRoundedRect(
        grid.Area(0, 0, GridWidth, GridHeight).adjusted(half, half, -half, -half), grid.Length(4),
        grid.Length(4));
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::Highlight));
    painter.drawRoundedRect(grid.Area(4, 4, 16, 14), grid.Length(1), grid.Length(1));
    painter.setBrush(palette.color(QPalette::HighlightedText));
    DrawNote(painter, grid);
    painter.setBrush(palette.color(QPalette::WindowText));
    DrawButtons(painter, grid);
    painter.restore();
}
