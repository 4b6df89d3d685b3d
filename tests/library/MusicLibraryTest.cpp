#include "library/MusicLibrary.h"
#include "tests/library/LibraryText.h"

using namespace Qt::StringLiterals;

TEST(KindFromTypeText, MusicFilesAreAudio) {
    EXPECT_EQ(KindFromTypeText(u"MPEG audio file"_s), KindAudio);
    EXPECT_EQ(KindFromTypeText(u"AAC audio file"_s), KindAudio);
    EXPECT_EQ(KindFromTypeText(u"WAV audio file"_s), KindAudio);
    EXPECT_EQ(KindFromTypeText(u"AIFF audio file"_s), KindAudio);
}

TEST(KindFromTypeText, FilmsAreVideo) {
    EXPECT_EQ(KindFromTypeText(u"MPEG-4 video file"_s), KindVideo);
    EXPECT_EQ(KindFromTypeText(u"QuickTime movie file"_s), KindVideo);
}

TEST(KindFromTypeText, EveryOtherTextIsNeither) {
    EXPECT_EQ(KindFromTypeText(u"Protected AAC audio file"_s), KindOther);
    EXPECT_EQ(KindFromTypeText(u"MPEG-Audiodatei"_s), KindOther);
    EXPECT_EQ(KindFromTypeText(u"MPEG audio file "_s), KindOther);
    EXPECT_EQ(KindFromTypeText(u"MPEG audio fil"_s), KindOther);
}

TEST(KindFromTypeText, TheEmptyTextIsNeither) {
    EXPECT_EQ(KindFromTypeText(QString()), KindOther);
    EXPECT_EQ(KindFromTypeText(u""_s), KindOther);
}

TEST(KindFromTypeText, ATextThatDiffersOnlyInCaseIsNeither) {
    EXPECT_EQ(KindFromTypeText(u"mpeg audio file"_s), KindOther);
    EXPECT_EQ(KindFromTypeText(u"QUICKTIME MOVIE FILE"_s), KindOther);
}

TEST(MusicLibrary, StartsEmpty) {
    const MusicLibrary library;
    EXPECT_EQ(library.TrackCount, 0);
    EXPECT_EQ(library.TotalSize, 0);
    EXPECT_FALSE(library.LoadingMusic);
    EXPECT_TRUE(library.Artists.empty());
}

TEST(MusicLibrary, UnknownNamesAreUpperCase) {
    EXPECT_EQ(UnknownName(), u"UNKNOWN"_s);
}
