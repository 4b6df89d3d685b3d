#include "tools/sample-ipod/Catalogue.h"

using namespace Qt::StringLiterals;

QString FileTypeText(SampleFormat format) {
    switch (format) {
    case SampleFormat::Mp3:
        return u"MPEG audio file"_s;
    case SampleFormat::Aac:
        return u"AAC audio file"_s;
    case SampleFormat::AppleLossless:
        return u"Apple Lossless audio file"_s;
    case SampleFormat::Wav:
        return u"WAV audio file"_s;
    case SampleFormat::Aiff:
        return u"AIFF audio file"_s;
    case SampleFormat::Mpeg4Video:
        return u"MPEG-4 video file"_s;
    case SampleFormat::QuickTimeMovie:
        return u"QuickTime movie file"_s;
    }
    return QString();
}

QString FileExtension(SampleFormat format) {
    switch (format) {
    case SampleFormat::Mp3:
        return u"mp3"_s;
    case SampleFormat::Aac:
    case SampleFormat::AppleLossless:
        return u"m4a"_s;
    case SampleFormat::Wav:
        return u"wav"_s;
    case SampleFormat::Aiff:
        return u"aif"_s;
    case SampleFormat::Mpeg4Video:
        return u"m4v"_s;
    case SampleFormat::QuickTimeMovie:
        return u"mov"_s;
    }
    return QString();
}

std::vector<CatalogueTrack> FullCatalogue() {
    using enum SampleFormat;
    const QString umbrellas = u"The Borrowed Umbrellas"_s;
    const QString volt = u"Volt/Ampere"_s;
    const QString lighthouse = u"青い灯台"_s;
    const QString pier = u"Тихая Пристань"_s;
    const QString lamp = u"Μικρό Φανάρι"_s;
    const QString moon = u"قمر الصيف"_s;
    const QString dots = u"...And Then Dots..."_s;
    const QString society = u"Small Screen Society"_s;
    const QString morning = u"Morning Rounds"_s;
    const QString bestOfA = u"Best Of?"_s;
    const QString bestOfB = u"Best Of*"_s;
    const QString live = u"Live: 1999"_s;
    const QString quoted = u"\"Quoted\" Evenings"_s;
    const QString harbour = u"港の歌"_s;
    const QString winter = u"Зимние письма"_s;
    const QString sea = u"Θάλασσα"_s;
    const QString letters = u"رسائل"_s;
    const QString hebrew = u"שירים קטנים"_s;
    const QString films = u"Films & Fields"_s;
    const QString blank = u"  Two Blanks  "_s;

    return {
        {umbrellas, morning, u"First Light"_s, 1, Mp3, 4},
        {umbrellas, morning, u"Kettle Song"_s, 2, Mp3, 4},
        {umbrellas, morning, u"Intro"_s, 3, Mp3, 2},
        {umbrellas, morning, u"Intro"_s, 3, Mp3, 2},
        {umbrellas, morning, u"Intro"_s, 3, Aac, 2},
        {umbrellas, bestOfA, u"What?"_s, 1, Mp3, 3},
        {umbrellas, bestOfA, u"Who, Where & Why"_s, 2, Aac, 3},
        {umbrellas, bestOfB, u"What?"_s, 1, Mp3, 3},
        {umbrellas, bestOfB, u"Stars *** Stripes"_s, 11, Mp3, 3},
        {volt, live, u"Opening: Part 1/2"_s, 1, Aac, 3},
        {volt, live, u"Opening: Part 2/2"_s, 2, Aac, 3},
        {volt, live, u"Volume > Silence | Silence < Volume"_s, 100, AppleLossless, 3},
        {volt, live, u"C:\\Drive\\Home"_s, 4, Wav, 2},
        {volt, quoted, u"Say \"Hello\""_s, 1, Mp3, 3},
        {volt, quoted, u"???"_s, 2, Mp3, 2},
        {volt, quoted, u"Encore"_s, 0, Aiff, 2},
        {lighthouse, harbour, u"夜明けの船"_s, 1, Aac, 3},
        {lighthouse, harbour, u"かもめとラジオ"_s, 2, Aac, 3},
        {lighthouse, harbour, u"雨の日 (リミックス)"_s, 3, Mp3, 3},
        {lighthouse, u"星 ★ 月"_s, u"Night Bus 🌙🚌"_s, 1, AppleLossless, 3},
        {pier, winter, u"Первый снег"_s, 1, Mp3, 3},
        {pier, winter, u"Дорога домой"_s, 2, Mp3, 3},
        {pier, winter, u"Ёлка и йод"_s, 3, Mp3, 3},
        {lamp, sea, u"Καλημέρα"_s, 1, Aac, 3},
        {lamp, sea, u"Άνεμος"_s, 2, Aac, 3},
        {moon, letters, u"الرسالة الأولى"_s, 1, Mp3, 3},
        {moon, letters, u"طريق البيت"_s, 2, Mp3, 3},
        {moon, hebrew, u"שיר הבוקר"_s, 1, Aac, 3},
        {QString(), QString(), QString(), 0, Mp3, 2},
        {QString(), QString(), u"Voice Memo"_s, 0, Wav, 2},
        {QString(), u"Loose Ends"_s, u"  Untidy.  "_s, 0, Aac, 2},
        {dots, u".hidden"_s, u"a..b"_s, 1, Mp3, 2},
        {dots, u".hidden"_s, u".start and end."_s, 2, Mp3, 2},
        {dots, blank, u"..."_s, 3, Mp3, 2},
        {dots, blank, u"  Three  Blanks   Inside  "_s, 4, Aiff, 2},
        {society, films, u"First Reel"_s, 1, Mpeg4Video, 4},
        {society, films, u"Second Reel"_s, 2, QuickTimeMovie, 4},
        {society, films, u"Test Card (Sound Only)"_s, 3, Aac, 3},
        {society, u"Field Recordings"_s, u"Long Tone"_s, 1, Wav, 290},
        {society, u"Field Recordings"_s, u"Short Tone"_s, 2, Wav, 2},
    };
}

std::vector<CatalogueTrack> SmallCatalogue() {
    using enum SampleFormat;
    const QString volt = u"Volt/Ampere"_s;
    const QString live = u"Live: 1999?"_s;
    const QString umbrellas = u"The Borrowed Umbrellas"_s;
    const QString dots = u"...And Then Dots..."_s;
    const QString society = u"Small Screen Society"_s;

    return {
        {volt, live, u"Opening"_s, 1, Mp3, 0, 40'000},
        {volt, live, u"Song"_s, 2, Mp3, 0, 400'001},
        {volt, live, u"Song"_s, 2, Mp3, 0, 30'000},
        {volt, u"\"Quoted\" Evenings"_s, u"Say \"Hello\""_s, 7, Aac, 0, 70'000},
        {umbrellas, u"Best Of?"_s, u"  Intro.  "_s, 0, Mp3, 0, 1},
        {umbrellas, u"Best Of*"_s, u"What?"_s, 3, AppleLossless, 0, 65'536},
        {u"青い灯台"_s, u"港の歌"_s, u"夜明け 🌅"_s, 1, Aac, 0, 50'000},
        {QString(), QString(), QString(), 0, Wav, 0, 5'000},
        {dots, u".hidden"_s, u"a..b"_s, 123, Aiff, 0, 8'192},
        {society, u"Films"_s, u"First Reel"_s, 1, Mpeg4Video, 0, 3'000'000},
        {society, u"Films"_s, u"Second Reel"_s, 2, QuickTimeMovie, 0, 50'000'001},
        {society, u"Long"_s, u"Whole Night"_s, 1, Mpeg4Video, 0, 600'000'000},
    };
}
