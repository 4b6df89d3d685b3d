#include "platform/Paths.h"

#include <gtest/gtest.h>

namespace {

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

} // namespace

TEST(PathForm, ALetterAndAColonBeginTheDriveForm) {
    EXPECT_TRUE(Paths::IsDriveForm(Text("E:")));
    EXPECT_TRUE(Paths::IsDriveForm(Text("E:\\Music")));
    EXPECT_TRUE(Paths::IsDriveForm(Text("z:\\Music")));
}

TEST(PathForm, OtherTextsAreNotInDriveForm) {
    EXPECT_FALSE(Paths::IsDriveForm(QString()));
    EXPECT_FALSE(Paths::IsDriveForm(Text("E")));
    EXPECT_FALSE(Paths::IsDriveForm(Text(":E")));
    EXPECT_FALSE(Paths::IsDriveForm(Text("1:\\Music")));
    EXPECT_FALSE(Paths::IsDriveForm(Text("É:\\Music")));
    EXPECT_FALSE(Paths::IsDriveForm(Text("/home/ana")));
    EXPECT_FALSE(Paths::IsDriveForm(Text("\\\\server\\share")));
}

TEST(PathSeparator, IsABackslashInDriveFormAndASlashOtherwise) {
    EXPECT_EQ(Paths::Separator(Text("E:\\Music")), QChar(u'\\'));
    EXPECT_EQ(Paths::Separator(Text("/home/ana")), QChar(u'/'));
    EXPECT_EQ(Paths::Separator(Text("Music")), QChar(u'/'));
}

TEST(PathJoining, OneSeparatorIsAddedWhereThereIsNone) {
    EXPECT_EQ(Paths::WithSeparator(Text("E:")), Text("E:\\"));
    EXPECT_EQ(Paths::WithSeparator(Text("E:\\Music")), Text("E:\\Music\\"));
    EXPECT_EQ(Paths::WithSeparator(Text("E:\\Music\\")), Text("E:\\Music\\"));
    EXPECT_EQ(Paths::WithSeparator(Text("/home/ana")), Text("/home/ana/"));
    EXPECT_EQ(Paths::WithSeparator(Text("/")), Text("/"));
}

TEST(PathJoining, ANameIsPutInsideItsFolder) {
    EXPECT_EQ(Paths::Join(Text("E:\\Music"), Text("Song.mp3")), Text("E:\\Music\\Song.mp3"));
    EXPECT_EQ(Paths::Join(Text("E:\\"), Text("Song.mp3")), Text("E:\\Song.mp3"));
    EXPECT_EQ(Paths::Join(Text("/home/ana"), Text("a\\b.mp3")), Text("/home/ana/a\\b.mp3"));
}

TEST(ParentFolder, IsTheFolderAbove) {
    EXPECT_EQ(Paths::ParentFolder(Text("C:\\Music\\New")), Text("C:\\Music"));
    EXPECT_EQ(Paths::ParentFolder(Text("/home/ana/Music")), Text("/home/ana"));
}

TEST(ParentFolder, OfAFolderInTheRootIsTheRoot) {
    EXPECT_EQ(Paths::ParentFolder(Text("C:\\Music")), Text("C:\\"));
    EXPECT_EQ(Paths::ParentFolder(Text("/home")), Text("/"));
}

TEST(ParentFolder, OfARootOrABareNameIsEmpty) {
    EXPECT_EQ(Paths::ParentFolder(Text("C:\\")), QString());
    EXPECT_EQ(Paths::ParentFolder(Text("C:")), QString());
    EXPECT_EQ(Paths::ParentFolder(Text("/")), QString());
    EXPECT_EQ(Paths::ParentFolder(Text("Music")), QString());
    EXPECT_EQ(Paths::ParentFolder(QString()), QString());
}

TEST(ParentFolder, ASeparatorAtTheEndDoesNotCount) {
    EXPECT_EQ(Paths::ParentFolder(Text("C:\\Music\\New\\")), Text("C:\\Music"));
    EXPECT_EQ(Paths::ParentFolder(Text("C:\\Music\\")), Text("C:\\"));
    EXPECT_EQ(Paths::ParentFolder(Text("/home/ana/")), Text("/home"));
    EXPECT_EQ(Paths::ParentFolder(Text("/home/")), Text("/"));
}

TEST(ParentFolder, EveryPathEndsInNoParentAfterAFewSteps) {
    for (const char* start :
         {"C:\\a\\\\b\\\\", "//a//b//", "C:a\\b", "a/b/c", "\\\\server\\share"}) {
        QString path = Text(start);
        int steps = 0;
        while (!path.isEmpty() && steps < 10) {
            path = Paths::ParentFolder(path);
            ++steps;
        }
        EXPECT_LT(steps, 10) << start;
    }
}

TEST(FileName, IsThePartAfterTheLastSeparatorOfItsForm) {
    EXPECT_EQ(Paths::FileName(Text("E:\\Music\\Song.mp3")), Text("Song.mp3"));
    EXPECT_EQ(Paths::FileName(Text("E:\\Music\\a/b.mp3")), Text("a/b.mp3"));
    EXPECT_EQ(Paths::FileName(Text("/home/ana/a\\b.mp3")), Text("a\\b.mp3"));
    EXPECT_EQ(Paths::FileName(Text("Song.mp3")), Text("Song.mp3"));
    EXPECT_EQ(Paths::FileName(Text("E:\\Music\\")), QString());
}

TEST(Extension, IsTheTextAfterTheLastDotOfTheFileName) {
    EXPECT_EQ(Paths::Extension(Text("E:\\F00\\ABCD.mp3")), Text("mp3"));
    EXPECT_EQ(Paths::Extension(Text("/music/a.b.m4a")), Text("m4a"));
    EXPECT_EQ(Paths::Extension(Text("/music/.hidden")), Text("hidden"));
}

TEST(Extension, OfANameWithoutADotIsEmpty) {
    EXPECT_EQ(Paths::Extension(Text("/music.d/song")), QString());
    EXPECT_EQ(Paths::Extension(Text("E:\\music.d\\song")), QString());
    EXPECT_EQ(Paths::Extension(Text("/music/song.")), QString());
}

TEST(PathOnAShare, BeginsWithServerAndShareAsOthersDoWithTheDrive) {
    const QString path = Text("\\\\server\\share\\Music");
    EXPECT_EQ(Paths::DrivePart(path), Text("\\\\server\\share"));
    EXPECT_EQ(Paths::Join(path, Text("New")), Text("\\\\server\\share\\Music\\New"));
    EXPECT_EQ(Paths::ParentFolder(path), Text("\\\\server\\share\\"));
    EXPECT_EQ(Paths::ParentFolder(Text("\\\\server\\share\\")), QString());
    for (const char* none :
         {"\\\\server", "\\\\server\\", "\\\\\\share", "\\\\?\\C:\\Music", "\\\\.\\C:"}) {
        EXPECT_EQ(Paths::DrivePart(Text(none)), QString()) << none;
    }
}

TEST(DrivePart, IsLetterAndColonOrTheRoot) {
    EXPECT_EQ(Paths::DrivePart(Text("C:\\x")), Text("C:"));
    EXPECT_EQ(Paths::DrivePart(Text("/home/ana")), Text("/"));
    EXPECT_EQ(Paths::DrivePart(Text("Music")), QString());
    EXPECT_EQ(Paths::DrivePart(QString()), QString());
}
