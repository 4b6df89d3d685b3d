#include "platform/player/MediaPlayer.h"

#include "platform/RuntimeError.h"
#include "platform/player/MediaFile.h"

#include <QFileInfo>

#include <memory>
#include <utility>

namespace {

/// Empty where there is none.
QString NativePathOf(FileSystem& files, const QString& path) {
    try {
        return files.NativePath(path);
    } catch (const RuntimeError&) {
        return {};
    }
}

} // namespace

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
    auto file = std::make_shared<MediaFile>([files = KeptAlive(m_files), path] {
        return NativePathOf(*files, path); // waits for the device
    });
    Widget()->Open(std::move(file), QFileInfo(path).suffix());
    TakeNaturalSize();
    // A window that keeps its size, because it is maximised, is filled all the same.
    QMetaObject::invokeMethod(
        Widget(), [this] { FillParent(); }, Qt::QueuedConnection);
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
