#include "app/NoDevicePanel.h"

#include "platform/qt/PlayerDrawing.h"

#include <QFontDatabase>
#include <QLabel>
#include <QVBoxLayout>

namespace {

QString MountingHelp() {
    return QStringLiteral("Songlift needs it mounted as a drive, and most desktops see to that.\n"
                          "On one that does not, open a terminal and type:");
}

/// The player that is missing, paler than one that is there.
class MissingPlayer : public QWidget {
public:
    explicit MissingPlayer(QWidget* parent) : QWidget(parent) { setFixedSize(60, 95); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setOpacity(0.5);
        DrawPlayer(painter, rect(), palette());
    }
};

/// Scrolls what does not fit, but not because of the picture, which goes first.
class TextWithPicture : public QScrollArea {
public:
    using QScrollArea::QScrollArea;

    QWidget* Picture = nullptr;

protected:
    void resizeEvent(QResizeEvent* event) override {
        QScrollArea::resizeEvent(event);
        const int shown = widget()->layout()->heightForWidth(viewport()->width());
        const int whole = Picture->isHidden() ? shown + Picture->height() : shown;
        Picture->setHidden(whole > viewport()->height());
    }
};

QLabel* NewText(QWidget* parent, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignHCenter);
    label->setWordWrap(true);
    return label;
}

QLabel* NewTitle(QWidget* parent, const QString& text) {
    QLabel* title = NewText(parent, text);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    title->setFont(font);
    return title;
}

QLineEdit* NewCommand(QWidget* parent, const QString& text) {
    auto* command = new QLineEdit(text, parent);
    command->setReadOnly(true);
    command->setAlignment(Qt::AlignHCenter);
    command->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    command->setFixedWidth(command->fontMetrics().horizontalAdvance(text) + 60);
    command->setAccessibleName(QStringLiteral("Command"));
    command->setAccessibleDescription(MountingHelp());
    return command;
}

} // namespace

NoDevicePanel::NoDevicePanel(QWidget* parent, const QString& name)
    : QtControl(new TextWithPicture(parent), name) {
    auto* content = new QWidget(Widget());
    auto* picture = new MissingPlayer(content);
    static_cast<TextWithPicture*>(Widget())->Picture = picture;
    auto* title = NewTitle(content, QStringLiteral("Connect your iPod"));
    m_command = NewCommand(content, QStringLiteral("udisksctl mount -b /dev/sdX2"));

    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(0);
    column->addStretch(2);
    column->addWidget(picture, 0, Qt::AlignHCenter);
    column->addSpacing(12);
    column->addWidget(title);
    column->addSpacing(8);
    column->addWidget(
        NewText(content, QStringLiteral("Plug it in, and its library appears here by itself.")));
    column->addSpacing(18);
    column->addWidget(NewText(content, MountingHelp()));
    column->addSpacing(8);
    column->addWidget(m_command, 0, Qt::AlignHCenter);
    column->addSpacing(8);
    column->addWidget(NewText(content, QStringLiteral("Put the iPod's data partition in the place "
                                                      "of sdX2: \"lsblk\" lists them all.")));
    column->addStretch(3);

    Widget()->setWidget(content);
    Widget()->setWidgetResizable(true);
    Widget()->setFocusPolicy(Qt::NoFocus);
    Widget()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Widget()->setAccessibleName(title->text());
    Widget()->setAutoFillBackground(true); // over the lists
    SetVisible(false);
}
