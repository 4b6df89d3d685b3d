#include "copy/Naming.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QStringList>

#include <random>

namespace {

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

QString Folder(const char* text) {
    return MakeSafeName(Text(text));
}

class NamingInOneFolder : public testing::Test {
protected:
    NamingInOneFolder() { naming.FolderChanged = true; }

    QString File(const char* text, const char* ext = ".mp3") {
        return naming.MakeFileName(MakeSafeName(Text(text)), Text(ext));
    }

    Naming naming;
};

/// The rule as it is told: two lists, and a scan that starts again at the first entry after each
/// find.
class ScanningNaming {
public:
    bool FolderChanged = true;

    QString FileName(QString result, const QString& ext) {
        if (FolderChanged) {
            m_names = {result + ext};
            m_counts = {2};
            FolderChanged = false;
            return result + ext;
        }
        const int last = static_cast<int>(m_names.size()) - 1;
        for (int j = 0; j <= last + 1; ++j) {
            if (j == last + 1) {
                m_names.push_back(result + ext);
                m_counts.push_back(2);
                break;
            }
            if (m_names[j] == result + ext) {
                result += Text(" (") + QString::number(m_counts[j]) + Text(")");
                ++m_counts[j];
                j = -1;
            }
        }
        return result + ext;
    }

    std::vector<QString> m_names;
    std::vector<qint32> m_counts;
};

} // namespace

TEST(Naming, ASlashIsDropped) {
    EXPECT_EQ(Folder("AC/DC"), Text("ACDC"));
}

TEST(Naming, AQuestionMarkIsDropped) {
    EXPECT_EQ(Folder("What?"), Text("What"));
}

TEST(Naming, AColonIsDroppedAndTheBlankAfterItKept) {
    EXPECT_EQ(Folder("Live: 1999"), Text("Live 1999"));
}

TEST(Naming, EveryForbiddenCharacterIsDropped) {
    EXPECT_EQ(Folder("a/b\\c:d*e?f<g>h|i"), Text("abcdefghi"));
}

TEST(Naming, LeadingBlanksTheTrailingDotAndTrailingBlanksGo) {
    EXPECT_EQ(Folder("  Intro.  "), Text("Intro"));
}

TEST(Naming, ADoubleQuoteBecomesAnApostrophe) {
    EXPECT_EQ(Folder("12\" Mix \"A\""), Text("12' Mix 'A'"));
}

TEST(Naming, AFolderWithNothingLeftIsUNKNOWN) {
    EXPECT_EQ(Folder("???"), Text("UNKNOWN"));
    EXPECT_EQ(Folder(""), Text("UNKNOWN"));
    EXPECT_EQ(Folder(" . .. "), Text("UNKNOWN"));
}

TEST_F(NamingInOneFolder, AFileWithNothingLeftIsUNKNOWNWithItsExtension) {
    EXPECT_EQ(File("???"), Text("UNKNOWN.mp3"));
    EXPECT_EQ(File(""), Text("UNKNOWN (2).mp3"));
}

TEST(Naming, ALeadingDotIsKeptWhenTextFollows) {
    EXPECT_EQ(Folder(".hidden"), Text(".hidden"));
    EXPECT_EQ(Folder(" . a"), Text(". a"));
}

TEST(Naming, DotsAndBlanksInsideAreKeptAsTheyWere) {
    EXPECT_EQ(Folder("a..b"), Text("a..b"));
    EXPECT_EQ(Folder("a  . b"), Text("a  . b"));
}

TEST(Naming, ADroppedCharacterNeitherEndsNorStartsARunOfBlanks) {
    EXPECT_EQ(Folder("a ? b"), Text("a  b"));
    EXPECT_EQ(Folder("a. ?"), Text("a"));
    EXPECT_EQ(Folder("? a"), Text("a"));
}

TEST(Naming, NoNameLeadsOutOfItsFolder) {
    EXPECT_EQ(Folder(".."), Text("UNKNOWN"));
    EXPECT_EQ(Folder("../../x"), Text("....x"));
}

TEST(Naming, OtherCharactersPassUnchanged) {
    EXPECT_EQ(Folder("\tBj\xC3\xB6rk & caf\xC3\xA9 \xE2\x80\xA6 \xF0\x9D\x84\x9E'"),
              Text("\tBj\xC3\xB6rk & caf\xC3\xA9 \xE2\x80\xA6 \xF0\x9D\x84\x9E'"));
}

TEST(Naming, TwoAlbumsWhoseCleanedNamesAreEqualShareOneFolder) {
    EXPECT_EQ(Folder("Best Of?"), Text("Best Of"));
    EXPECT_EQ(Folder("Best Of\\*"), Text("Best Of"));
}

TEST_F(NamingInOneFolder, TheSameNameThreeTimesIsNumberedBeforeTheExtension) {
    EXPECT_EQ(File("Song"), Text("Song.mp3"));
    EXPECT_EQ(File("Song"), Text("Song (2).mp3"));
    EXPECT_EQ(File("Song"), Text("Song (3).mp3"));
    EXPECT_EQ(naming.UsedNames(),
              (std::vector{Text("Song.mp3"), Text("Song (2).mp3"), Text("Song (3).mp3")}));
    EXPECT_EQ(naming.UsedCounts(), (std::vector<qint32>{4, 2, 2}));
}

TEST_F(NamingInOneFolder, ANumberedNameCountsAsANameOfItsOwn) {
    EXPECT_EQ(File("Song"), Text("Song.mp3"));
    EXPECT_EQ(File("Song"), Text("Song (2).mp3"));
    EXPECT_EQ(File("Song (2)"), Text("Song (2) (2).mp3"));
    EXPECT_EQ(File("Song"), Text("Song (3).mp3"));
}

TEST_F(NamingInOneFolder, ANumberThatIsTakenAlreadyIsNumberedInItsTurn) {
    EXPECT_EQ(File("Song (2)"), Text("Song (2).mp3"));
    EXPECT_EQ(File("Song"), Text("Song.mp3"));
    EXPECT_EQ(File("Song"), Text("Song (2) (2).mp3"));
    EXPECT_EQ(File("Song"), Text("Song (3).mp3"));
}

TEST_F(NamingInOneFolder, LetterCaseMakesADifference) {
    EXPECT_EQ(File("Song"), Text("Song.mp3"));
    EXPECT_EQ(File("SONG"), Text("SONG.mp3"));
}

TEST_F(NamingInOneFolder, TheExtensionBelongsToTheName) {
    EXPECT_EQ(File("Song", ".mp3"), Text("Song.mp3"));
    EXPECT_EQ(File("Song", ".m4a"), Text("Song.m4a"));
    EXPECT_EQ(File("Song", ".m4a"), Text("Song (2).m4a"));
}

TEST_F(NamingInOneFolder, NamesThatBecomeEqualByCleaningAreNumbered) {
    EXPECT_EQ(File("Song?"), Text("Song.mp3"));
    EXPECT_EQ(File("Song"), Text("Song (2).mp3"));
}

TEST_F(NamingInOneFolder, ANewFolderForgetsTheNames) {
    File("Song");
    File("Song");
    naming.FolderChanged = true;
    EXPECT_EQ(File("Song"), Text("Song.mp3"));
    EXPECT_FALSE(naming.FolderChanged);
    EXPECT_EQ(naming.UsedNames(), std::vector{Text("Song.mp3")});
    EXPECT_EQ(naming.UsedCounts(), std::vector<qint32>{2});
}

TEST(Naming, RandomNamesAreNumberedAsByTheScanWithRestart) {
    std::mt19937 random(20240607);
    const QStringList words = {Text("a"),     Text("a (2)"),     Text("a (3)"), Text("A"),
                               Text("b (2)"), Text("a (2) (2)"), Text("b"),     Text("a (2) (3)")};
    const QStringList extensions = {Text(".mp3"), Text(".m4a"), Text(".")};
    Naming naming;
    naming.FolderChanged = true;
    ScanningNaming scanning;
    for (int i = 0; i < 20000; ++i) {
        if (random() % 200 == 0) {
            naming.FolderChanged = true;
            scanning.FolderChanged = true;
        }
        const QString name = words[static_cast<int>(random() % words.size())];
        const QString ext = extensions[static_cast<int>(random() % extensions.size())];
        const QString expected = scanning.FileName(name, ext);
        ASSERT_EQ(naming.MakeFileName(name, ext), expected) << "name number " << i;
        ASSERT_EQ(naming.UsedNames(), scanning.m_names);
        ASSERT_EQ(naming.UsedCounts(), scanning.m_counts);
    }
}

TEST_F(NamingInOneFolder, FiftyThousandEqualTitlesAreNamedInNoTime) {
    QElapsedTimer timer;
    timer.start();
    QString last;
    for (int i = 0; i < 50000; ++i) {
        last = File("Song");
    }
    EXPECT_EQ(last, Text("Song (50000).mp3"));
    // A scan of the list for each name would take minutes.
    EXPECT_LT(timer.elapsed(), 5000);
}
