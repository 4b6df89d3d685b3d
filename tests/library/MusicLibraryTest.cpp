#include "library/MusicLibrary.h"
#include "tests/library/LibraryText.h"

using namespace Qt::StringLiterals;

TEST(KindFromTypeText, MusicFilesAreAudio) {
    EXPECT_EQ(KindFromTypeText(u"MPEG audio file"_s), 1);
    EXPECT_EQ(KindFromTypeText(u"AAC audio file"_s), 1);
    EXPECT_EQ(KindFromTypeText(u"WAV audio file"_s), 1);
    EXPECT_EQ(KindFromTypeText(u"AIFF audio file"_s), 1);
}

TEST(KindFromTypeText, FilmsAreVideo) {
    EXPECT_EQ(KindFromTypeText(u"MPEG-4 video file"_s), 2);
    EXPECT_EQ(KindFromTypeText(u"QuickTime movie file"_s), 2);
}

TEST(KindFromTypeText, EveryOtherTextIsNeither) {
    EXPECT_EQ(KindFromTypeText(u"Protected AAC audio file"_s), 0);
    EXPECT_EQ(KindFromTypeText(u"MPEG-Audiodatei"_s), 0);
    EXPECT_EQ(KindFromTypeText(u"MPEG audio file "_s), 0);
    EXPECT_EQ(KindFromTypeText(u"MPEG audio fil"_s), 0);
}

TEST(KindFromTypeText, TheEmptyTextIsNeither) {
    EXPECT_EQ(KindFromTypeText(QString()), 0);
    EXPECT_EQ(KindFromTypeText(u""_s), 0);
}

TEST(KindFromTypeText, ATextThatDiffersOnlyInCaseIsNeither) {
    EXPECT_EQ(KindFromTypeText(u"mpeg audio file"_s), 0);
    EXPECT_EQ(KindFromTypeText(u"QUICKTIME MOVIE FILE"_s), 0);
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
