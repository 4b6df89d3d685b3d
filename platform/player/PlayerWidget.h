#pragma once

#include "platform/player/Playback.h"

#include <QWidget>

#include <functional>
#include <memory>

class MediaFile;
class PlayerEngine;
class PlayerBar;
class VideoArea;

/// The picture, the bar below it, and the player behind them, which is made when it is first
/// needed.
class PlayerWidget : public QWidget {
public:
    /// How long Open waits until the file is known, in milliseconds. The window is not served
    /// meanwhile, so it must be too short to notice.
    static constexpr int UsualPatience = 80;
    int Patience = UsualPatience;
    /// The file became known after Open had given up waiting; its size may have changed.
    std::function<void()> KnownLate;
    /// The widget that holds the player has another size.
    std::function<void()> ParentResized;

    explicit PlayerWidget(QWidget* parent);
    ~PlayerWidget() override;

    /// Plays a file that is not open yet, or says that it cannot be played. `suffix` is the ending
    /// of its name.
    void Open(std::shared_ptr<MediaFile> file, const QString& suffix);
    /// Stops at once; the file is closed.
    void Stop();
    /// The size that suits what is played, in pixels: a film's own, or smaller where the screen is.
    QSize NaturalSize() const;

    QSize sizeHint() const override { return NaturalSize(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    VideoArea* m_area;
    PlayerBar* m_bar;
    std::unique_ptr<PlayerEngine> m_player;
    /// What is shown while there is no player, or no file for it.
    Playback m_without;
    bool m_hasFile = false;
    bool m_awaitsFile = false;

    const Playback& State() const;
    void NeedPlayer();
    void ShowState();
    void HearChange();
    void PlayOrPause();
    QSize RoomForPicture() const;
};
