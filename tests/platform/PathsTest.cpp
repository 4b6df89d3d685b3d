#include "platform/Paths.h"

#include "tests/fakes/Text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PathForm, ALetterAndAColonBeginTheDriveForm) {
    for (const char* path : {"E:", "E:\\Music", "z:\\Music"}) {
        EXPECT_TRUE(Paths::IsDriveForm(Text(path))) << path;
    }
    for (const char* path :
         {"", "E", ":E", "1:\\Music", "É:\\Music", "/home/ana", "\\\\server\\share"}) {
        EXPECT_FALSE(Paths::IsDriveForm(Text(path))) << path;
    }
}

TEST(PathSeparator, IsABackslashInDriveFormAndASlashOtherwise) {
    EXPECT_EQ(Paths::Separator(u"E:\\Music"_s), u'\\');
    EXPECT_EQ(Paths::Separator(u"/home/ana"_s), u'/');
    EXPECT_EQ(Paths::Separator(u"Music"_s), u'/');
}

TEST(PathJoining, OneSeparatorIsAddedWhereThereIsNone) {
    EXPECT_EQ(Paths::WithSeparator(u"E:"_s), u"E:\\"_s);
    EXPECT_EQ(Paths::WithSeparator(u"E:\\Music"_s), u"E:\\Music\\"_s);
    EXPECT_EQ(Paths::WithSeparator(u"E:\\Music\\"_s), u"E:\\Music\\"_s);
    EXPECT_EQ(Paths::WithSeparator(u"/home/ana"_s), u"/home/ana/"_s);
    EXPECT_EQ(Paths::WithSeparator(u"/"_s), u"/"_s);
}

TEST(PathJoining, ANameIsPutInsideItsFolder) {
    EXPECT_EQ(Paths::Join(u"E:\\Music"_s, u"Song.mp3"_s), u"E:\\Music\\Song.mp3"_s);
    EXPECT_EQ(Paths::Join(u"E:\\"_s, u"Song.mp3"_s), u"E:\\Song.mp3"_s);
    EXPECT_EQ(Paths::Join(u"/home/ana"_s, u"a\\b.mp3"_s), u"/home/ana/a\\b.mp3"_s);
}

TEST(ParentFolder, IsTheFolderAboveUpToTheRootWhateverEndsThePath) {
    const std::pair<const char*, const char*> folders[] = {
        {"C:\\Music\\New", "C:\\Music"},
        {"C:\\Music\\New\\", "C:\\Music"},
        {"C:\\Music", "C:\\"},
        {"C:\\Music\\", "C:\\"},
        {"/home/ana/Music", "/home/ana"},
        {"/home/ana/", "/home"},
        {"/home", "/"},
        {"/home/", "/"},
    };
    for (const auto& [folder, parent] : folders) {
        EXPECT_EQ(Paths::ParentFolder(Text(folder)), Text(parent)) << folder;
    }
    for (const char* root : {"C:\\", "C:", "/", "Music", ""}) {
        EXPECT_EQ(Paths::ParentFolder(Text(root)), QString()) << root;
    }
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
    EXPECT_EQ(Paths::FileName(u"E:\\Music\\Song.mp3"_s), u"Song.mp3"_s);
    EXPECT_EQ(Paths::FileName(u"E:\\Music\\a/b.mp3"_s), u"a/b.mp3"_s);
    EXPECT_EQ(Paths::FileName(u"/home/ana/a\\b.mp3"_s), u"a\\b.mp3"_s);
    EXPECT_EQ(Paths::FileName(u"Song.mp3"_s), u"Song.mp3"_s);
    EXPECT_EQ(Paths::FileName(u"E:\\Music\\"_s), QString());
}

TEST(Extension, IsTheTextAfterTheLastDotOfTheFileName) {
    EXPECT_EQ(Paths::Extension(u"E:\\F00\\ABCD.mp3"_s), u"mp3"_s);
    EXPECT_EQ(Paths::Extension(u"/music/a.b.m4a"_s), u"m4a"_s);
    EXPECT_EQ(Paths::Extension(u"/music/.hidden"_s), u"hidden"_s);
}

TEST(Extension, OfANameWithoutADotIsEmpty) {
    EXPECT_EQ(Paths::Extension(u"/music.d/song"_s), QString());
    EXPECT_EQ(Paths::Extension(u"E:\\music.d\\song"_s), QString());
    EXPECT_EQ(Paths::Extension(u"/music/song."_s), QString());
}

TEST(PathOnAShare, BeginsWithServerAndShareAsOthersDoWithTheDrive) {
    const QString path = u"\\\\server\\share\\Music"_s;
    EXPECT_EQ(Paths::DrivePart(path), u"\\\\server\\share"_s);
    EXPECT_EQ(Paths::Join(path, u"New"_s), u"\\\\server\\share\\Music\\New"_s);
    EXPECT_EQ(Paths::ParentFolder(path), u"\\\\server\\share\\"_s);
    EXPECT_EQ(Paths::ParentFolder(u"\\\\server\\share\\"_s), QString());
    for (const char* none :
         {"\\\\server", "\\\\server\\", "\\\\\\share", "\\\\?\\C:\\Music", "\\\\.\\C:"}) {
        EXPECT_EQ(Paths::DrivePart(Text(none)), QString()) << none;
    }
}

TEST(DrivePart, IsLetterAndColonOrTheRoot) {
    EXPECT_EQ(Paths::DrivePart(u"C:\\x"_s), u"C:"_s);
    EXPECT_EQ(Paths::DrivePart(u"/home/ana"_s), u"/"_s);
    EXPECT_EQ(Paths::DrivePart(u"Music"_s), QString());
    EXPECT_EQ(Paths::DrivePart(QString()), QString());
}
