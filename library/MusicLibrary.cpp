#include "library/MusicLibrary.h"

#include <utility>

namespace {

constexpr std::pair<QLatin1String, Kind> Kinds[] = {
    {QLatin1String("MPEG audio file"), KindAudio},
    {QLatin1String("AAC audio file"), KindAudio},
    {QLatin1String("WAV audio file"), KindAudio},
    {QLatin1String("AIFF audio file"), KindAudio},
    {QLatin1String("MPEG-4 video file"), KindVideo},
    {QLatin1String("QuickTime movie file"), KindVideo},
};

} // namespace

Kind KindFromTypeText(const QString& text) {
    for (const auto& [known, kind] : Kinds) {
        if (known == text) {
            return kind;
        }
    }
    return KindOther;
}

const QString& UnknownName() {
    static const QString name = QStringLiteral("UNKNOWN");
    return name;
}
