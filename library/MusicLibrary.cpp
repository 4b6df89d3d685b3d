#include "library/MusicLibrary.h"

#include <QHash>

Kind KindFromTypeText(const QString& text) {
    static const QHash<QString, Kind> kinds = {
        {QStringLiteral("MPEG audio file"), KindAudio},
        {QStringLiteral("AAC audio file"), KindAudio},
        {QStringLiteral("WAV audio file"), KindAudio},
        {QStringLiteral("AIFF audio file"), KindAudio},
        {QStringLiteral("MPEG-4 video file"), KindVideo},
        {QStringLiteral("QuickTime movie file"), KindVideo},
    };
    return kinds.value(text, KindOther);
}

const QString& UnknownName() {
    static const QString name = QStringLiteral("UNKNOWN");
    return name;
}
