#include "platform/player/PlayerBar.h"

#include "platform/player/JumpSlider.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSize = 16;
/// In pixels: narrower bars leave out the volume, and still narrower ones the time.
constexpr int widthWithVolume = 300;
constexpr int widthWithTime = 200;
constexpr int volumeWidth = 70;

/// "0:12", "1:02:03".
QString TimeText(double time) {
    const qint64 seconds = static_cast<qint64>(std::min(time, 1e9));
    const auto twoDigits = [](qint64 number) { return u"%1"_s.arg(number, 2, 10, QChar(u'0')); };
    const qint64 hours = seconds / 3600;
    const qint64 minutes = seconds / 60 % 60;
    const QString end = u':' + twoDigits(seconds % 60);
    return hours == 0 ? QString::number(minutes) + end
                      : QString::number(hours) + u':' + twoDigits(minutes) + end;
}

/// The slider counts milliseconds.
int Milliseconds(double time) {
    return static_cast<int>(std::min(time * 1000, 2e9));
}

/// The style's own icons are black, and could not be seen in a dark window.
QPixmap TintedIcon(const QWidget& widget, QStyle::StandardPixmap which) {
    const QIcon icon = widget.style()->standardIcon(which, nullptr, &widget);
    QPixmap pixmap = icon.pixmap(QSize(iconSize, iconSize), widget.devicePixelRatio());
    if (pixmap.isNull()) {
        return pixmap;
    }
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(), pixmap.size()), widget.palette().color(QPalette::WindowText));
    return pixmap;
}

void Name(QWidget& widget, const QString& objectName, const QString& spokenName) {
    widget.setObjectName(objectName);
    widget.setAccessibleName(spokenName);
    widget.setToolTip(spokenName);
}

} // namespace

PlayerBar::PlayerBar(QWidget* parent)
    : QWidget(parent), m_play(new QToolButton(this)), m_position(new JumpSlider(this)),
      m_time(new QLabel(this)), m_volumeIcon(new QLabel(this)), m_volume(new JumpSlider(this)),
      m_message(new QLabel(this)) {
    MakeControls();
    LayOut();
    SetIcons();
    Show({});
}

void PlayerBar::MakeControls() {
    Name(*m_play, u"PlayButton"_s, u"Play"_s);
    m_play->setAutoRaise(true);
    m_play->setFocusPolicy(Qt::StrongFocus);
    m_play->setIconSize(QSize(iconSize, iconSize));
    connect(m_play, &QToolButton::clicked, this, [this] { PlayPausePressed(); });

    Name(*m_position, u"PositionSlider"_s, u"Position"_s);
    m_position->setSingleStep(Milliseconds(5));
    m_position->setPageStep(Milliseconds(30));
    connect(m_position, &QSlider::valueChanged, this, [this](int value) {
        if (!m_showingTime) {
            PositionChosen(value / 1000.0);
        }
    });

    m_time->setObjectName(u"TimeLabel"_s);
    m_time->setAlignment(Qt::AlignCenter);

    Name(*m_volume, u"VolumeSlider"_s, u"Volume"_s);
    m_volume->setRange(0, 100);
    m_volume->setPageStep(10);
    m_volume->setSingleStep(5);
    m_volume->setValue(100);
    m_volume->setFixedWidth(volumeWidth);
    connect(m_volume, &QSlider::valueChanged, this, [this](int value) { VolumeChosen(value); });

    m_message->setObjectName(u"MessageLabel"_s);
    m_message->setAlignment(Qt::AlignCenter);
}

void PlayerBar::LayOut() {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 3, 4, 3);
    layout->setSpacing(6);
    layout->addWidget(m_play);
    layout->addWidget(m_position, 1);
    layout->addWidget(m_time);
    layout->addWidget(m_volumeIcon);
    layout->addWidget(m_volume);
    layout->addWidget(m_message, 1);
    setFixedHeight(layout->sizeHint().height());
}

void PlayerBar::Show(const Playback& playback) {
    const bool open = playback.At == Playback::Stage::Open;
    m_failed = playback.At == Playback::Stage::Failed;
    m_message->setText(playback.Why.isEmpty() ? u"This file cannot be played."_s : playback.Why);
    m_play->setEnabled(open);
    m_position->setEnabled(open && playback.Duration > 0);
    ShowPlaying(open && !playback.Paused);
    // The last picture begins before the end, but the slider is to stand at the end.
    const double position = playback.AtEnd ? playback.Duration : playback.Position;
    ShowTime(open ? position : 0, open ? playback.Duration : 0);
    ShowFittingControls();
}

int PlayerBar::Volume() const {
    return m_volume->value();
}

void PlayerBar::ShowPlaying(bool playing) {
    if (playing != m_playing) {
        m_playing = playing;
        const QString name = playing ? u"Pause"_s : u"Play"_s;
        Name(*m_play, m_play->objectName(), name);
        SetIcons();
    }
}

void PlayerBar::ShowTime(double position, double duration) {
    m_showingTime = true;
    m_position->setMaximum(Milliseconds(duration));
    if (!m_position->isSliderDown()) {
        m_position->setValue(Milliseconds(position));
    }
    m_showingTime = false;

    const QString ofAll = duration > 0 ? u" / "_s + TimeText(duration) : QString();
    m_time->setText(TimeText(position) + ofAll);
    // Room for the widest time, so that the slider keeps its width.
    const QString widest = TimeText(std::max(position, duration)) + ofAll;
    m_time->setMinimumWidth(m_time->fontMetrics().horizontalAdvance(widest) + 2);
}

void PlayerBar::SetIcons() {
    m_play->setIcon(TintedIcon(*this, m_playing ? QStyle::SP_MediaPause : QStyle::SP_MediaPlay));
    m_volumeIcon->setPixmap(TintedIcon(*this, QStyle::SP_MediaVolume));
}

void PlayerBar::ShowFittingControls() {
    m_message->setVisible(m_failed);
    m_play->setVisible(!m_failed);
    m_position->setVisible(!m_failed);
    m_time->setVisible(!m_failed && width() >= widthWithTime);
    m_volumeIcon->setVisible(!m_failed && width() >= widthWithVolume);
    m_volume->setVisible(!m_failed && width() >= widthWithVolume);
}

void PlayerBar::resizeEvent(QResizeEvent*) {
    ShowFittingControls();
}

void PlayerBar::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        SetIcons();
    }
    QWidget::changeEvent(event);
}
