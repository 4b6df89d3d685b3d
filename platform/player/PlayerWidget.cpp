#include "platform/player/PlayerWidget.h"

#include "platform/RuntimeError.h"
#include "platform/player/PlayerBar.h"
#include "platform/player/PlayerEngine.h"
#include "platform/player/VideoArea.h"

#include <QDeadlineTimer>
#include <QEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// In pixels, for a player without a film.
constexpr int smallWidth = 360;
constexpr int coverHeight = 200;
/// The least that the bar can be used with.
constexpr int leastWidth = 160;
/// What a window's border and title bar take when they are not known yet.
constexpr QSize usualFrame(16, 48);

} // namespace

PlayerWidget::PlayerWidget(QWidget* parent)
    : QWidget(parent), m_area(new VideoArea(this)), m_bar(new PlayerBar(this)) {
    m_area->setObjectName(u"VideoArea"_s);
    m_bar->setObjectName(u"PlayerBar"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_area, 1);
    layout->addWidget(m_bar);

    m_bar->PlayPausePressed = [this] { PlayOrPause(); };
    m_bar->PositionChosen = [this](double position) {
        if (m_hasFile) {
            m_player->SeekTo(position);
        }
    };
    m_bar->VolumeChosen = [this](int percent) {
        if (m_player != nullptr) {
            m_player->SetVolume(percent);
        }
    };
    auto* space = new QShortcut(QKeySequence(Qt::Key_Space), this);
    connect(space, &QShortcut::activated, this, [this] { PlayOrPause(); });
    parent->installEventFilter(this);
}

PlayerWidget::~PlayerWidget() = default;

const Playback& PlayerWidget::State() const {
    return m_hasFile ? m_player->State() : m_without;
}

bool PlayerWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::Resize && ParentResized) {
        ParentResized();
    }
    return false;
}

void PlayerWidget::NeedPlayer() {
    if (m_player != nullptr) {
        return;
    }
    m_player = PlayerEngine::Make();
    m_player->Changed = [this] { HearChange(); };
    m_player->FrameReady = [this] { m_area->FrameReady(); };
    m_player->SetVolume(m_bar->Volume());
    m_area->SetEngine(m_player.get());
}

void PlayerWidget::Open(std::shared_ptr<MediaFile> file, const QString& suffix) {
    const QDeadlineTimer deadline(Patience);
    Stop();
    try {
        NeedPlayer();
        m_player->Load(std::move(file), suffix);
        m_hasFile = true;
        m_awaitsFile = !m_player->WaitUntilKnown(static_cast<int>(deadline.remainingTime()));
    } catch (const RuntimeError&) {
        m_without.At = Playback::Stage::Failed;
    }
    ShowState();
}

void PlayerWidget::Stop() {
    const bool hangs = m_hasFile && !m_player->Stop();
    m_hasFile = false;
    m_awaitsFile = false;
    m_without = {};
    ShowState();
    if (hangs) {
        m_area->SetEngine(nullptr);
        m_player.reset(); // the next file gets a new one
    }
}

void PlayerWidget::ShowState() {
    m_bar->Show(State());
    m_area->SetContent(State());
}

void PlayerWidget::HearChange() {
    ShowState();
    if (m_awaitsFile && m_player->Known()) {
        m_awaitsFile = false;
        KnownLate();
    }
}

void PlayerWidget::PlayOrPause() {
    if (State().At != Playback::Stage::Open) {
        return;
    }
    if (State().AtEnd) {
        m_player->SeekTo(0);
    }
    m_player->SetPaused(!State().Paused);
}

QSize PlayerWidget::NaturalSize() const {
    const int bar = m_bar->minimumHeight();
    if (State().Shows == Playback::Picture::Cover) {
        return {smallWidth, coverHeight + bar};
    }
    if (State().Shows != Playback::Picture::Film || State().PictureSize.isEmpty()) {
        return {smallWidth, bar};
    }
    const QSize room = RoomForPicture();
    QSize film = State().PictureSize;
    if (film.width() > room.width() || film.height() > room.height()) {
        film = film.scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    }
    return {std::max(film.width(), leastWidth), film.height() + bar};
}

/// The largest picture whose window fits on the screen.
QSize PlayerWidget::RoomForPicture() const {
    const QSize frame = window()->frameGeometry().size() - window()->geometry().size();
    const QSize room = screen()->availableGeometry().size() - frame.expandedTo(usualFrame) -
                       QSize(0, m_bar->minimumHeight());
    return room.expandedTo(QSize(leastWidth, 1));
}
