#include "library/MusicLibrary.h"
#include "tests/library/LibraryText.h"

using namespace Qt::StringLiterals;

TEST(KindFromTypeText, OnlyTheKnownTextsInTheirOwnSpellingHaveAKind) {
    for (const QString& text :
         {u"MPEG audio file"_s, u"AAC audio file"_s, u"WAV audio file"_s, u"AIFF audio file"_s}) {
        EXPECT_EQ(KindFromTypeText(text), KindAudio) << text.toStdString();
    }
    for (const QString& text : {u"MPEG-4 video file"_s, u"QuickTime movie file"_s}) {
        EXPECT_EQ(KindFromTypeText(text), KindVideo) << text.toStdString();
    }
    for (const QString& text :
         {u"Protected AAC audio file"_s, u"MPEG-Audiodatei"_s, u"MPEG audio file "_s,
          u"MPEG audio fil"_s, u"mpeg audio file"_s, u"QUICKTIME MOVIE FILE"_s, u""_s, QString()}) {
        EXPECT_EQ(KindFromTypeText(text), KindOther) << text.toStdString();
    }
}

TEST(MusicLibrary, StartsEmpty) {
    const MusicLibrary library;
    EXPECT_EQ(library.TrackCount, 0);
    EXPECT_EQ(library.TotalSize, 0);
    EXPECT_FALSE(library.LoadingMusic);
    EXPECT_TRUE(library.Artists.empty());
}
