#pragma once

#include "platform/FileSystem.h"
#include "platform/player/PlayerWidget.h"
#include "platform/qt/QtControl.h"

/// Plays a file in a window of its own: the player fills the widget that holds it, whatever size
/// the user gives that.
class MediaPlayer : public QtControl<MediaPlayerControl, PlayerWidget> {
public:
    MediaPlayer(QWidget* parent, const QString& name, FileSystem& files);

    QString Source() const override { return m_source; }
    void SetSource(const QString& path) override;

private:
    FileSystem& m_files;
    QString m_source;

    void TakeNaturalSize();
    void FillParent();
    void TakeLateSize();
};
