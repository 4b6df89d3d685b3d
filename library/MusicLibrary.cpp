#include "library/MusicLibrary.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::pair<QStringView, Kind> Kinds[] = {
    {u"MPEG audio file", KindAudio},   {u"AAC audio file", KindAudio},
    {u"WAV audio file", KindAudio},    {u"AIFF audio file", KindAudio},
    {u"MPEG-4 video file", KindVideo}, {u"QuickTime movie file", KindVideo},
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
    static const QString name = u"UNKNOWN"_s;
    return name;
}
