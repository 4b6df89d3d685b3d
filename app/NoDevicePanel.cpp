#include "app/NoDevicePanel.h"

#include "platform/ConnectingHelp.h"

#include <QFontDatabase>
#include <QIcon>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct Text {
    QString Title, WhatToDo;
};

Text TextFor(NoDeviceReason reason) {
    switch (reason) {
    case NoDeviceReason::NoneChosen:
        return {u"Choose an iPod"_s, u"The list above names those that are connected.\n"
                                     "If yours is missing, connect it and open the list again."_s};
    case NoDeviceReason::NoMusic:
        return {u"No music on this iPod"_s,
                u"Songlift found no songs and no videos in its library.\n"
                "Once there are some, connect it and start Songlift again."_s};
    case NoDeviceReason::NotRead:
        return {u"This iPod's library cannot be read"_s,
                u"Its music may still be there.\n"
                "Connect it again, and start Songlift again."_s};
    case NoDeviceReason::NoneConnected:
        break;
    }
    return {u"Connect your iPod"_s, u"Plug it in, and its library appears here by itself."_s};
}

/// A picture of the missing player, paler than that of a connected one.
class MissingPlayer : public QWidget {
public:
    explicit MissingPlayer(QWidget* parent) : QWidget(parent) { setFixedSize(80, 100); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setOpacity(0.5);
        QIcon(u":/player.png"_s).paint(&painter, rect());
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

QLineEdit* NewCommand(QWidget* parent, const ConnectingHelp& help) {
    auto* command = new QLineEdit(help.Command, parent);
    command->setReadOnly(true);
    command->setAlignment(Qt::AlignHCenter);
    command->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    command->setFixedWidth(command->fontMetrics().horizontalAdvance(help.Command) + 60);
    command->setAccessibleName(u"Command"_s);
    command->setAccessibleDescription(help.Before);
    return command;
}

} // namespace

/// Scrolls a text that does not fit. Where only the picture is too much, it is hidden instead.
class NoDevicePanel::TextWithPicture : public QScrollArea {
public:
    using QScrollArea::QScrollArea;

    QWidget* Picture = nullptr;

    void ShowPictureIfItFits() {
        const int shown = widget()->layout()->heightForWidth(viewport()->width());
        const int whole = Picture->isHidden() ? shown + Picture->height() : shown;
        Picture->setHidden(whole > viewport()->height());
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QScrollArea::resizeEvent(event);
        ShowPictureIfItFits();
    }
};

NoDevicePanel::NoDevicePanel(QWidget* parent, const QString& name)
    : NoDevicePanel(new TextWithPicture(parent), name) {
}

NoDevicePanel::NoDevicePanel(TextWithPicture* text, const QString& name)
    : QtControl(text, name), m_text(text) {
    auto* content = new QWidget(Widget());
    auto* picture = new MissingPlayer(content);
    m_text->Picture = picture;
    m_title = NewTitle(content, {});
    m_whatToDo = NewText(content, {});
    const ConnectingHelp help = ConnectingHelp::OfThisSystem();
    m_command = NewCommand(content, help);
    m_connecting = {NewText(content, help.Before), NewText(content, help.After)};

    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(0);
    column->addStretch(2);
    column->addWidget(picture, 0, Qt::AlignHCenter);
    column->addSpacing(12);
    column->addWidget(m_title);
    column->addSpacing(8);
    column->addWidget(m_whatToDo);
    column->addSpacing(18);
    column->addWidget(m_connecting[0]);
    column->addSpacing(8);
    column->addWidget(m_command, 0, Qt::AlignHCenter);
    column->addSpacing(8);
    column->addWidget(m_connecting[1]);
    column->addStretch(3);

    Widget()->setWidget(content);
    Widget()->setWidgetResizable(true);
    Widget()->setFocusPolicy(Qt::NoFocus);
    Widget()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Widget()->setAutoFillBackground(true); // over the lists
    SetVisible(false);
    NoDevicePanel::Tell(NoDeviceReason::NoneConnected);
}

void NoDevicePanel::Tell(NoDeviceReason reason) {
    const Text text = TextFor(reason);
    m_title->setText(text.Title);
    m_whatToDo->setText(text.WhatToDo);
    const bool isConnected = reason != NoDeviceReason::NoneConnected;
    m_command->setHidden(isConnected || m_command->text().isEmpty());
    for (QWidget* widget : m_connecting) {
        widget->setHidden(isConnected);
    }
    Widget()->setAccessibleName(text.Title);
    m_text->ShowPictureIfItFits();
}
