#include "tools/sample-ipod/Catalogue.h"

QString FileTypeText(SampleFormat format) {
    switch (format) {
    case SampleFormat::Mp3:
        return QStringLiteral("MPEG audio file");
    case SampleFormat::Aac:
        return QStringLiteral("AAC audio file");
    case SampleFormat::AppleLossless:
        return QStringLiteral("Apple Lossless audio file");
    case SampleFormat::Wav:
        return QStringLiteral("WAV audio file");
    case SampleFormat::Aiff:
        return QStringLiteral("AIFF audio file");
    case SampleFormat::Mpeg4Video:
        return QStringLiteral("MPEG-4 video file");
    case SampleFormat::QuickTimeMovie:
        return QStringLiteral("QuickTime movie file");
    }
    return QString();
}

QString FileExtension(SampleFormat format) {
    switch (format) {
    case SampleFormat::Mp3:
        return QStringLiteral("mp3");
    case SampleFormat::Aac:
    case SampleFormat::AppleLossless:
        return QStringLiteral("m4a");
    case SampleFormat::Wav:
        return QStringLiteral("wav");
    case SampleFormat::Aiff:
        return QStringLiteral("aif");
    case SampleFormat::Mpeg4Video:
        return QStringLiteral("m4v");
    case SampleFormat::QuickTimeMovie:
        return QStringLiteral("mov");
    }
    return QString();
}

std::vector<CatalogueTrack> FullCatalogue() {
    using enum SampleFormat;
    const auto text = [](const char16_t* literal) { return QString::fromUtf16(literal); };
    const QString umbrellas = text(u"The Borrowed Umbrellas");
    const QString volt = text(u"Volt/Ampere");
    const QString lighthouse = text(u"青い灯台");
    const QString pier = text(u"Тихая Пристань");
    const QString lamp = text(u"Μικρό Φανάρι");
    const QString moon = text(u"قمر الصيف");
    const QString dots = text(u"...And Then Dots...");
    const QString society = text(u"Small Screen Society");
    const QString morning = text(u"Morning Rounds");
    const QString bestOfA = text(u"Best Of?");
    const QString bestOfB = text(u"Best Of*");
    const QString live = text(u"Live: 1999");
    const QString quoted = text(u"\"Quoted\" Evenings");
    const QString harbour = text(u"港の歌");
    const QString winter = text(u"Зимние письма");
    const QString sea = text(u"Θάλασσα");
    const QString letters = text(u"رسائل");
    const QString hebrew = text(u"שירים קטנים");
    const QString films = text(u"Films & Fields");
    const QString blank = text(u"  Two Blanks  ");

    return {
        {umbrellas, morning, text(u"First Light"), 1, Mp3, 4},
        {umbrellas, morning, text(u"Kettle Song"), 2, Mp3, 4},
        {umbrellas, morning, text(u"Intro"), 3, Mp3, 2},
        {umbrellas, morning, text(u"Intro"), 3, Mp3, 2},
        {umbrellas, morning, text(u"Intro"), 3, Aac, 2},
        {umbrellas, bestOfA, text(u"What?"), 1, Mp3, 3},
        {umbrellas, bestOfA, text(u"Who, Where & Why"), 2, Aac, 3},
        {umbrellas, bestOfB, text(u"What?"), 1, Mp3, 3},
        {umbrellas, bestOfB, text(u"Stars *** Stripes"), 11, Mp3, 3},
        {volt, live, text(u"Opening: Part 1/2"), 1, Aac, 3},
        {volt, live, text(u"Opening: Part 2/2"), 2, Aac, 3},
        {volt, live, text(u"Volume > Silence | Silence < Volume"), 100, AppleLossless, 3},
        {volt, live, text(u"C:\\Drive\\Home"), 4, Wav, 2},
        {volt, quoted, text(u"Say \"Hello\""), 1, Mp3, 3},
        {volt, quoted, text(u"???"), 2, Mp3, 2},
        {volt, quoted, text(u"Encore"), 0, Aiff, 2},
        {lighthouse, harbour, text(u"夜明けの船"), 1, Aac, 3},
        {lighthouse, harbour, text(u"かもめとラジオ"), 2, Aac, 3},
        {lighthouse, harbour, text(u"雨の日 (リミックス)"), 3, Mp3, 3},
        {lighthouse, text(u"星 ★ 月"), text(u"Night Bus 🌙🚌"), 1, AppleLossless, 3},
        {pier, winter, text(u"Первый снег"), 1, Mp3, 3},
        {pier, winter, text(u"Дорога домой"), 2, Mp3, 3},
        {pier, winter, text(u"Ёлка и йод"), 3, Mp3, 3},
        {lamp, sea, text(u"Καλημέρα"), 1, Aac, 3},
        {lamp, sea, text(u"Άνεμος"), 2, Aac, 3},
        {moon, letters, text(u"الرسالة الأولى"), 1, Mp3, 3},
        {moon, letters, text(u"طريق البيت"), 2, Mp3, 3},
        {moon, hebrew, text(u"שיר הבוקר"), 1, Aac, 3},
        {QString(), QString(), QString(), 0, Mp3, 2},
        {QString(), QString(), text(u"Voice Memo"), 0, Wav, 2},
        {QString(), text(u"Loose Ends"), text(u"  Untidy.  "), 0, Aac, 2},
        {dots, text(u".hidden"), text(u"a..b"), 1, Mp3, 2},
        {dots, text(u".hidden"), text(u".start and end."), 2, Mp3, 2},
        {dots, blank, text(u"..."), 3, Mp3, 2},
        {dots, blank, text(u"  Three  Blanks   Inside  "), 4, Aiff, 2},
        {society, films, text(u"First Reel"), 1, Mpeg4Video, 4},
        {society, films, text(u"Second Reel"), 2, QuickTimeMovie, 4},
        {society, films, text(u"Test Card (Sound Only)"), 3, Aac, 3},
        {society, text(u"Field Recordings"), text(u"Long Tone"), 1, Wav, 290},
        {society, text(u"Field Recordings"), text(u"Short Tone"), 2, Wav, 2},
    };
}

std::vector<CatalogueTrack> SmallCatalogue() {
    using enum SampleFormat;
    const auto text = [](const char16_t* literal) { return QString::fromUtf16(literal); };
    const QString volt = text(u"Volt/Ampere");
    const QString live = text(u"Live: 1999?");
    const QString umbrellas = text(u"The Borrowed Umbrellas");
    const QString dots = text(u"...And Then Dots...");
    const QString society = text(u"Small Screen Society");

    return {
        {volt, live, text(u"Opening"), 1, Mp3, 0, 40'000},
        {volt, live, text(u"Song"), 2, Mp3, 0, 400'001},
        {volt, live, text(u"Song"), 2, Mp3, 0, 30'000},
        {volt, text(u"\"Quoted\" Evenings"), text(u"Say \"Hello\""), 7, Aac, 0, 70'000},
        {umbrellas, text(u"Best Of?"), text(u"  Intro.  "), 0, Mp3, 0, 1},
        {umbrellas, text(u"Best Of*"), text(u"What?"), 3, AppleLossless, 0, 65'536},
        {text(u"青い灯台"), text(u"港の歌"), text(u"夜明け 🌅"), 1, Aac, 0, 50'000},
        {QString(), QString(), QString(), 0, Wav, 0, 5'000},
        {dots, text(u".hidden"), text(u"a..b"), 123, Aiff, 0, 8'192},
        {society, text(u"Films"), text(u"First Reel"), 1, Mpeg4Video, 0, 3'000'000},
        {society, text(u"Films"), text(u"Second Reel"), 2, QuickTimeMovie, 0, 50'000'001},
        {society, text(u"Long"), text(u"Whole Night"), 1, Mpeg4Video, 0, 600'000'000},
    };
}
