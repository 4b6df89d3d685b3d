#include "copy/Naming.h"

#include "tests/fakes/Text.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QStringList>

#include <random>

using namespace Qt::StringLiterals;

namespace {

class NamingInOneFolder : public testing::Test {
protected:
    NamingInOneFolder() { naming.ChangeFolder(); }

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
                result += u" ("_s + QString::number(m_counts[j]) + u")"_s;
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

TEST(Naming, ANameLosesWhatNoFolderMayHoldAndNothingElse) {
    const std::pair<const char*, const char*> names[] = {
        {"a/b\\c:d*e?f<g>h|i", "abcdefghi"},
        {"Live: 1999", "Live 1999"},
        {"12\" Mix \"A\"", "12' Mix 'A'"},
        {"  Intro.  ", "Intro"},
        {"???", "UNKNOWN"},
        {"", "UNKNOWN"},
        {" . .. ", "UNKNOWN"},
        {"..", "UNKNOWN"},
        {"../../x", "....x"}, // leads nowhere
        {".hidden", ".hidden"},
        {" . a", ". a"},
        {"a..b", "a..b"},
        {"a  . b", "a  . b"},
        {"a ? b", "a  b"},
        {"a. ?", "a"},
        {"? a", "a"},
        {"\tBj\xC3\xB6rk & caf\xC3\xA9 \xE2\x80\xA6 \xF0\x9D\x84\x9E'",
         "\tBj\xC3\xB6rk & caf\xC3\xA9 \xE2\x80\xA6 \xF0\x9D\x84\x9E'"},
    };
    for (const auto& [name, safeName] : names) {
        EXPECT_EQ(MakeSafeName(Text(name)), Text(safeName));
    }
}

TEST_F(NamingInOneFolder, AFileWithNothingLeftIsUNKNOWNWithItsExtension) {
    EXPECT_EQ(File("???"), u"UNKNOWN.mp3"_s);
    EXPECT_EQ(File(""), u"UNKNOWN (2).mp3"_s);
}

TEST_F(NamingInOneFolder, TheSameNameThreeTimesIsNumberedBeforeTheExtension) {
    EXPECT_EQ(File("Song"), u"Song.mp3"_s);
    EXPECT_EQ(File("Song"), u"Song (2).mp3"_s);
    EXPECT_EQ(File("Song"), u"Song (3).mp3"_s);
    EXPECT_EQ(naming.UsedNames(),
              (std::vector{u"Song.mp3"_s, u"Song (2).mp3"_s, u"Song (3).mp3"_s}));
    EXPECT_EQ(naming.UsedCounts(), (std::vector<qint32>{4, 2, 2}));
}

TEST_F(NamingInOneFolder, ANumberedNameCountsAsANameOfItsOwn) {
    EXPECT_EQ(File("Song"), u"Song.mp3"_s);
    EXPECT_EQ(File("Song"), u"Song (2).mp3"_s);
    EXPECT_EQ(File("Song (2)"), u"Song (2) (2).mp3"_s);
    EXPECT_EQ(File("Song"), u"Song (3).mp3"_s);
}

TEST_F(NamingInOneFolder, ANumberThatIsTakenAlreadyIsNumberedInItsTurn) {
    EXPECT_EQ(File("Song (2)"), u"Song (2).mp3"_s);
    EXPECT_EQ(File("Song"), u"Song.mp3"_s);
    EXPECT_EQ(File("Song"), u"Song (2) (2).mp3"_s);
    EXPECT_EQ(File("Song"), u"Song (3).mp3"_s);
}

TEST_F(NamingInOneFolder, ANumberIsNeverCutOff) {
    const QByteArray title(300, 'a');
    const QByteArray extension = '.' + QByteArray(300, 'x');
    File(title.constData(), extension.constData());
    EXPECT_TRUE(File(title.constData(), extension.constData()).contains(u"a (2).x"_s));
    for (int numbers = 0; numbers < 40; ++numbers) {
        const QByteArray numbered =
            QByteArray(251 - 4 * numbers, 'a') + QByteArray(" (2)").repeated(numbers);
        File(numbered.constData());
    }
    EXPECT_TRUE(File(title.constData()).endsWith(u" (3).mp3"_s));
    EXPECT_TRUE(File(title.constData()).endsWith(u").mp3"_s));
}

TEST_F(NamingInOneFolder, TheExtensionAndTheLetterCaseBelongToTheName) {
    EXPECT_EQ(File("SONG"), u"SONG.mp3"_s);
    EXPECT_EQ(File("Song", ".mp3"), u"Song.mp3"_s);
    EXPECT_EQ(File("Song", ".m4a"), u"Song.m4a"_s);
    EXPECT_EQ(File("Song", ".m4a"), u"Song (2).m4a"_s);
}

TEST_F(NamingInOneFolder, ANewFolderForgetsTheNames) {
    File("Song");
    File("Song");
    naming.ChangeFolder();
    EXPECT_EQ(File("Song"), u"Song.mp3"_s);
    EXPECT_FALSE(naming.FolderChanged());
    EXPECT_EQ(naming.UsedNames(), std::vector{u"Song.mp3"_s});
    EXPECT_EQ(naming.UsedCounts(), std::vector<qint32>{2});
}

TEST(Naming, RandomNamesAreNumberedAsByTheScanWithRestart) {
    std::mt19937 random(20240607);
    const QStringList words = {u"a"_s,     u"a (2)"_s,     u"a (3)"_s, u"A"_s,
                               u"b (2)"_s, u"a (2) (2)"_s, u"b"_s,     u"a (2) (3)"_s};
    const QStringList extensions = {u".mp3"_s, u".m4a"_s, u"."_s};
    Naming naming;
    naming.ChangeFolder();
    ScanningNaming scanning;
    for (int i = 0; i < 20000; ++i) {
        if (random() % 200 == 0) {
            naming.ChangeFolder();
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
    EXPECT_EQ(last, u"Song (50000).mp3"_s);
    // A scan of the list for each name would take minutes.
    EXPECT_LT(timer.elapsed(), 5000);
}
