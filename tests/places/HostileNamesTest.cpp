#include "tests/places/JobOnDisk.h"

#include <QElapsedTimer>

namespace {

QString Repeated(const char* text, int count) {
    return Text(text).repeated(count);
}

class HostileNames : public JobOnDisk {
protected:
    /// A song whose name is `title` and ".mp3" on the destination's disk.
    void AddNamed(const QString& title, const QString& name) {
        AddSong(title, "sound");
        m_names += name;
    }
    void SetFolders() {
        form.chkArtist.SetValue(true);
        form.chkAlbum.SetValue(true);
    }

    void RunAndExpect() {
        m_messages += Text("Songlift: Copy completed!");
        m_names.sort();
        Run();
        EXPECT_EQ(MessagesShown(), m_messages);
        EXPECT_EQ(Copied(), m_names);
        for (const QString& name : m_names) {
            EXPECT_EQ(ReadFile(Destination() + u'/' + name), "sound");
        }
        EXPECT_TRUE(prompted.isEmpty());
        ExpectRestUntouched();
    }

    QStringList m_names;
    QStringList m_messages;
};

} // namespace

TEST_F(HostileNames, TitlesThatMeanSomethingToSystemsAreOnlyNames) {
    AddNamed(Text(".."), Text("UNKNOWN.mp3"));
    AddNamed(Text(". . ."), Text("UNKNOWN (2).mp3"));
    AddNamed(Text("../../secret"), Text("....secret.mp3"));
    AddNamed(Text("..\\..\\secret"), Text("....secret (2).mp3"));
    AddNamed(Text("/etc/passwd"), Text("etcpasswd.mp3"));
    AddNamed(Text("C:\\boot"), Text("Cboot.mp3"));
    AddNamed(Text("~"), Text("~.mp3"));
    AddNamed(Text("-rf"), Text("-rf.mp3"));
    AddNamed(Text("tmp"), Text("tmp.mp3"));
    AddNamed(Text("copy.tmp"), Text("copy.tmp.mp3"));
    AddNamed(Text("CON"), Text("CON.mp3"));
    AddNamed(Text("aux.mp3"), Text("aux.mp3.mp3"));
    AddNamed(Text(".songlift.part"), Text(".songlift.part.mp3"));
    AddNamed(Text("  ends in dots. . "), Text("ends in dots.mp3"));
    AddNamed(Text("$(reboot) `x` %n %s"), Text("$(reboot) `x` %n %s.mp3"));
    RunAndExpect();
}

TEST_F(HostileNames, UnseenAndOddCharactersStayAsTheyAre) {
    for (const char* title :
         {"two\nlines", "\ttab", "\x01\x1F\x7F", "\u202Egnos", "\u200Bzero\u200F", "\uFEFFmark",
          "e\u0301", "\u00E9", "\uFFFF", "\U0001F3B5"}) {
        AddNamed(Text(title), Text(title) + Text(".mp3"));
    }
    RunAndExpect();
}

TEST_F(HostileNames, ATitleThatNoDiskCanHoldArrivesUnderTheNearestNameThatItCan) {
    const QString half = QStringLiteral("half ") + QChar(0xD83C);
    const QString other = QChar(0xDFB5) + QStringLiteral(" half");
    const QString longest = QString(251, u'a');
    AddNamed(Text("before"), Text("before.mp3"));
    AddNamed(half, Text("half .mp3"));
    AddNamed(other, Text(" half.mp3"));
    AddNamed(longest, longest + Text(".mp3"));
    AddNamed(longest + u'b', QString(247, u'a') + Text(" (2).mp3"));
    AddNamed(Repeated("\U0001F3B5", 300), Repeated("\U0001F3B5", 62) + Text(".mp3"));
    AddNamed(Text("after"), Text("after.mp3"));
    RunAndExpect();
}

TEST_F(HostileNames, ATitleWithANulCannotCutItsName) {
    AddSong(Text("cut") + QChar(u'\0') + Text("here"), "sound");
    AddSong(Text("after"), "sound");
    Run();
    EXPECT_TRUE(Copied().contains(Text("after.mp3")));
    EXPECT_FALSE(Copied().contains(Text("cut")));
    EXPECT_EQ(messages.Texts(), QStringList(Text("Copy completed!")));
    ExpectRestUntouched();
}

TEST_F(HostileNames, AnExtensionIsPartOfTheNameAndNoMore) {
    for (const auto& [name, copy] :
         {std::pair{"b.", "b."}, std::pair{"c", "c."}, std::pair{"d.tmp", "d.tmp"},
          std::pair{"e.\n", "e.\n"}, std::pair{"f.m<p>3", "f.mp3"}}) {
        WriteFile(Music(name), "sound");
        AddTrack(QString(Text(name).at(0)), Text("F00/") + Text(name));
        m_names += Text(copy);
    }
    WriteFile(Music("x.part"), "sound");
    AddTrack(Text(".songlift"), Text("F00/x.part"));
    m_messages += Text("Error: Unable to create file: \"") + Destination(".songlift.part") + u'"';
    RunAndExpect();
}

TEST_F(HostileNames, FoldersOfOddNamesAreMadeBelowTheDestination) {
    SetFolders();
    const std::vector<std::pair<const char*, const char*>> names = {
        {"..", "UNKNOWN"},       {"../..", "UNKNOWN"}, {".. x", ".. x"},
        {"/etc", "etc"},         {"a\nb", "a\nb"},     {"~", "~"},
        {"-rf", "-rf"},          {"CON", "CON"},       {"\u202Ex", "\u202Ex"},
        {"copy.tmp", "copy.tmp"}};
    int number = 0;
    for (const auto& [name, folder] : names) {
        const QString title = QString::number(++number);
        SampleTrack& track = AddSong(title, "sound");
        track.Artist = Text(name);
        track.Album = Text(name);
        m_names += Text(folder) + u'/' + Text(folder) + u'/' + title + Text(".mp3");
    }
    RunAndExpect();
}

TEST_F(HostileNames, AFolderThatNoDiskCanHoldIsMadeUnderTheNearestName) {
    SetFolders();
    const QString tooLong = Repeated("\U0001F3B5", 300);
    const QString half = QStringLiteral("half") + QChar(0xD83C);
    for (const QString& name : {tooLong, tooLong + u'!', half}) {
        AddSong(Text("Song"), "sound").Artist = name;
    }
    AddSong(Text("Song"), "sound").Album = tooLong;
    const QString cut = Repeated("\U0001F3B5", 62);
    m_names = {cut + Text("\U0001F3B5/Album/Song.mp3"), cut + Text(" (2)/Album/Song.mp3"),
               Text("half/Album/Song.mp3"), Text("Artist/") + cut + Text("\U0001F3B5/Song.mp3")};
    RunAndExpect();
}

TEST_F(HostileNames, AFolderOfOurOwnPartNameCostsItsFilesOnly) {
    SetFolders();
    AddSong(Text("Song"), "sound").Artist = Text(".songlift.part");
    AddSong(Text("Song"), "sound").Album = Text("Sound");
    Run();
    EXPECT_EQ(messages.Texts().last(), Text("Copy completed!"));
    EXPECT_TRUE(messages.Texts().first().startsWith(Text("Unable to create file: \"")));
    EXPECT_EQ(Copied(), QStringList(Text("Artist/Sound/Song.mp3")));
    ExpectRestUntouched();
}

TEST_F(HostileNames, APathThatIsTooLongForTheSystemCostsItsFileOnly) {
    SetFolders();
    QString deep = Destination();
    while (deep.size() < 3900) {
        deep += u'/' + QString(100, u'd');
    }
    deep += u'/' + QString(4080 - deep.size(), u'd');
    MakeFolder(deep);
    form.txtDestination.SetText(deep);
    AddSong(Text("Song"), "sound").Artist = Text("An artist of some length");
    for (const char* title : {"S", "A title of some length"}) {
        SampleTrack& track = AddSong(Text(title), "sound");
        track.Artist = Text("A");
        track.Album = Text("B");
    }
    Run();
    const QString unable = Text("Error: Unable to create file: \"") + deep;
    EXPECT_EQ(MessagesShown(),
              QStringList({unable + Text("/An artist of some length\""),
                           unable + Text("/An artist of some length/Album\""),
                           unable + Text("/An artist of some length/Album/Song.mp3\""),
                           unable + Text("/A/B/A title of some length.mp3\""),
                           Text("Songlift: Copy completed!")}));
    const QStringList copied = Copied();
    ASSERT_EQ(copied.size(), 1);
    EXPECT_TRUE(copied[0].endsWith(Text("/A/B/S.mp3")));
    ExpectRestUntouched();
}

TEST_F(HostileNames, ADestinationOfThousandsOfFoldersIsAnsweredAtOnce) {
    AddSong(Text("Song"), "sound");
    const QString native = Destination("a") + Text("/a").repeated(500000);
    for (const QString& path :
         {Text("Q:") + Text("\\a").repeated(16000), Text("E:") + Text("\\a").repeated(16000),
          Text("Q:") + Text("\\a").repeated(500000), native}) {
        form.txtDestination.SetText(path);
        QElapsedTimer clock;
        clock.start();
        Run();
        EXPECT_EQ(MessagesShown(), QStringList(Text("Songlift: Invalid destination path.")));
        EXPECT_LT(clock.elapsed(), 20000) << qPrintable(path.left(10));
        EXPECT_EQ(NamesIn(Destination()), QStringList());
    }
    ExpectRestUntouched();
}
