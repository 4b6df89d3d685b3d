#include "tests/places/JobOnDisk.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

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
        m_messages += u"Songlift: Copy completed!"_s;
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
    AddNamed(u".."_s, u"UNKNOWN.mp3"_s);
    AddNamed(u". . ."_s, u"UNKNOWN (2).mp3"_s);
    AddNamed(u"../../secret"_s, u"....secret.mp3"_s);
    AddNamed(u"..\\..\\secret"_s, u"....secret (2).mp3"_s);
    AddNamed(u"/etc/passwd"_s, u"etcpasswd.mp3"_s);
    AddNamed(u"C:\\boot"_s, u"Cboot.mp3"_s);
    AddNamed(u"~"_s, u"~.mp3"_s);
    AddNamed(u"-rf"_s, u"-rf.mp3"_s);
    AddNamed(u"tmp"_s, u"tmp.mp3"_s);
    AddNamed(u"copy.tmp"_s, u"copy.tmp.mp3"_s);
    AddNamed(u"CON"_s, u"CON.mp3"_s);
    AddNamed(u"aux.mp3"_s, u"aux.mp3.mp3"_s);
    AddNamed(u".songlift.part"_s, u".songlift.part.mp3"_s);
    AddNamed(u"  ends in dots. . "_s, u"ends in dots.mp3"_s);
    AddNamed(u"$(reboot) `x` %n %s"_s, u"$(reboot) `x` %n %s.mp3"_s);
    RunAndExpect();
}

TEST_F(HostileNames, UnseenAndOddCharactersStayAsTheyAre) {
    for (const char* title :
         {"two\nlines", "\ttab", "\x01\x1F\x7F", "\u202Egnos", "\u200Bzero\u200F", "\uFEFFmark",
          "e\u0301", "\u00E9", "\uFFFF", "\U0001F3B5"}) {
        AddNamed(Text(title), Text(title) + u".mp3"_s);
    }
    RunAndExpect();
}

TEST_F(HostileNames, ATitleThatNoDiskCanHoldArrivesUnderTheNearestNameThatItCan) {
    const QString half = u"half "_s + QChar(0xD83C);
    const QString other = QChar(0xDFB5) + u" half"_s;
    const QString longest = QString(251, u'a');
    AddNamed(u"before"_s, u"before.mp3"_s);
    AddNamed(half, u"half .mp3"_s);
    AddNamed(other, u" half.mp3"_s);
    AddNamed(longest, longest + u".mp3"_s);
    AddNamed(longest + u'b', QString(247, u'a') + u" (2).mp3"_s);
    AddNamed(Repeated("\U0001F3B5", 300), Repeated("\U0001F3B5", 62) + u".mp3"_s);
    AddNamed(u"after"_s, u"after.mp3"_s);
    RunAndExpect();
}

TEST_F(HostileNames, ATitleWithANulCannotCutItsName) {
    AddSong(u"cut"_s + u'\0' + u"here"_s, "sound");
    AddSong(u"after"_s, "sound");
    Run();
    EXPECT_TRUE(Copied().contains(u"after.mp3"_s));
    EXPECT_FALSE(Copied().contains(u"cut"_s));
    EXPECT_EQ(messages.Texts(), QStringList(u"Copy completed!"_s));
    ExpectRestUntouched();
}

TEST_F(HostileNames, AnExtensionIsPartOfTheNameAndNoMore) {
    for (const auto& [name, copy] :
         {std::pair{"b.", "b."}, std::pair{"c", "c."}, std::pair{"d.tmp", "d.tmp"},
          std::pair{"e.\n", "e.\n"}, std::pair{"f.m<p>3", "f.mp3"}}) {
        WriteFile(Music(name), "sound");
        AddTrack(QString(Text(name).at(0)), u"F00/"_s + Text(name));
        m_names += Text(copy);
    }
    WriteFile(Music("x.part"), "sound");
    AddTrack(u".songlift"_s, u"F00/x.part"_s);
    m_messages += u"Error: Unable to create file: \""_s + Destination(".songlift.part") + u'"';
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
        m_names += Text(folder) + u'/' + Text(folder) + u'/' + title + u".mp3"_s;
    }
    RunAndExpect();
}

TEST_F(HostileNames, AFolderThatNoDiskCanHoldIsMadeUnderTheNearestName) {
    SetFolders();
    const QString tooLong = Repeated("\U0001F3B5", 300);
    const QString half = u"half"_s + QChar(0xD83C);
    for (const QString& name : {tooLong, tooLong + u'!', half}) {
        AddSong(u"Song"_s, "sound").Artist = name;
    }
    AddSong(u"Song"_s, "sound").Album = tooLong;
    const QString cut = Repeated("\U0001F3B5", 62);
    m_names = {cut + u"\U0001F3B5/Album/Song.mp3"_s, cut + u" (2)/Album/Song.mp3"_s,
               u"half/Album/Song.mp3"_s, u"Artist/"_s + cut + u"\U0001F3B5/Song.mp3"_s};
    RunAndExpect();
}

TEST_F(HostileNames, AFolderOfOurOwnPartNameCostsItsFilesOnly) {
    SetFolders();
    AddSong(u"Song"_s, "sound").Artist = u".songlift.part"_s;
    AddSong(u"Song"_s, "sound").Album = u"Sound"_s;
    Run();
    EXPECT_EQ(messages.Texts().last(), u"Copy completed!"_s);
    EXPECT_TRUE(messages.Texts().first().startsWith(u"Unable to create file: \""_s));
    EXPECT_EQ(Copied(), QStringList(u"Artist/Sound/Song.mp3"_s));
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
    AddSong(u"Song"_s, "sound").Artist = u"An artist of some length"_s;
    for (const char* title : {"S", "A title of some length"}) {
        SampleTrack& track = AddSong(Text(title), "sound");
        track.Artist = u"A"_s;
        track.Album = u"B"_s;
    }
    Run();
    const QString unable = u"Error: Unable to create file: \""_s + deep;
    EXPECT_EQ(MessagesShown(),
              QStringList({unable + u"/An artist of some length\""_s,
                           unable + u"/An artist of some length/Album\""_s,
                           unable + u"/An artist of some length/Album/Song.mp3\""_s,
                           unable + u"/A/B/A title of some length.mp3\""_s,
                           u"Songlift: Copy completed!"_s}));
    const QStringList copied = Copied();
    ASSERT_EQ(copied.size(), 1);
    EXPECT_TRUE(copied[0].endsWith(u"/A/B/S.mp3"_s));
    ExpectRestUntouched();
}

TEST_F(HostileNames, ADestinationOfThousandsOfFoldersIsAnsweredAtOnce) {
    AddSong(u"Song"_s, "sound");
    const QString native = Destination("a") + u"/a"_s.repeated(500000);
    for (const QString& path :
         {u"Q:"_s + u"\\a"_s.repeated(16000), u"E:"_s + u"\\a"_s.repeated(16000),
          u"Q:"_s + u"\\a"_s.repeated(500000), native}) {
        form.txtDestination.SetText(path);
        QElapsedTimer clock;
        clock.start();
        Run();
        EXPECT_EQ(MessagesShown(), QStringList(u"Songlift: Invalid destination path."_s));
        EXPECT_LT(clock.elapsed(), 20000) << qPrintable(path.left(10));
        EXPECT_EQ(NamesIn(Destination()), QStringList());
    }
    ExpectRestUntouched();
}
