#include "platform/player/MediaPlayer.h"

#include "platform/RuntimeError.h"

MediaPlayer::MediaPlayer(QWidget* parent, const QString& name, FileSystem& files)
    : QtControl(new PlayerWidget(parent), name), m_files(files) {
    Widget()->ParentResized = [this] { FillParent(); };
    Widget()->KnownLate = [this] { QtFrames::HandleAlways([this] { TakeLateSize(); }); };
}

void MediaPlayer::SetSource(const QString& path) {
    m_source = path;
    if (path.isEmpty()) {
        Widget()->Stop();
        return;
    }
    Widget()->Open(NativePathOf(path));
    TakeNaturalSize();
    // A window that keeps its size, because it is maximised, is filled all the same.
    QMetaObject::invokeMethod(
        Widget(), [this] { FillParent(); }, Qt::QueuedConnection);
}

QString MediaPlayer::NativePathOf(const QString& path) const {
    try {
        return m_files.NativePath(path);
    } catch (const RuntimeError&) {
        return {};
    }
}

void MediaPlayer::TakeNaturalSize() {
    const QSize size = Widget()->NaturalSize();
    Move(Left(), Top(), size.width() * Twips::PerPixelX(), size.height() * Twips::PerPixelY());
}

void MediaPlayer::FillParent() {
    const QWidget& parent = *Widget()->parentWidget();
    if (parent.isVisible()) {
        Move(0, 0, parent.width() * Twips::PerPixelX(), parent.height() * Twips::PerPixelY());
    }
}

void MediaPlayer::TakeLateSize() {
    TakeNaturalSize();
    Raise(SizeChanged);
    FillParent();
}
