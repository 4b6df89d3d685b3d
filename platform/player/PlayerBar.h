#pragma once

#include "platform/player/Playback.h"

#include <QWidget>

#include <functional>

class JumpSlider;
class QLabel;
class QToolButton;

/// The bar below the picture: play and pause, the position, the time and the volume; or a message
/// in their place. A narrow bar leaves out the volume, and then the time.
class PlayerBar : public QWidget {
public:
    std::function<void()> PlayPausePressed;
    /// The user wants another position, in seconds.
    std::function<void(double position)> PositionChosen;
    std::function<void(int percent)> VolumeChosen;

    explicit PlayerBar(QWidget* parent);

    /// Shows what plays, or that it cannot be played.
    void Show(const Playback& playback);
    /// 0 to 100.
    int Volume() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeControls();
    void LayOut();
    void ShowPlaying(bool playing);
    void ShowTime(double position, double duration);
    void SetIcons();
    void ShowFittingControls();

    QToolButton* m_play;
    JumpSlider* m_position;
    QLabel* m_time;
    QLabel* m_volumeIcon;
    JumpSlider* m_volume;
    QLabel* m_message;
    bool m_playing = false;
    bool m_failed = false;
    /// The position is being shown, not chosen by the user.
    bool m_showingTime = false;
};
