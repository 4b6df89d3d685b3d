#include "browser/SortedOrder.h"

#include "platform/RuntimeError.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <unicode/uclean.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

std::vector<qint32> Order(const QStringList& names, qint32 firstNumber = 0) {
    std::vector<const QString*> pointers;
    for (const QString& name : names) {
        pointers.push_back(&name);
    }
    return SortedOrder(pointers, firstNumber);
}

/// The names in their order, as "Abba, Queen".
std::string Sorted(const QStringList& names) {
    QStringList sorted;
    for (const qint32 position : Order(names)) {
        sorted.append(names[position]);
    }
    return sorted.join(u", "_s).toStdString();
}

QStringList Names(const char* commaSeparated) {
    return QString::fromUtf8(commaSeparated).split(u", "_s);
}

} // namespace

TEST(SortedOrder, NothingToSortGivesAnEmptyOrder) {
    EXPECT_TRUE(Order({}).empty());
}

TEST(SortedOrder, NamesAreOrderedAsInASortedListBoxWithTheirNumbersBehindThem) {
    const struct {
        const char* Rule;
        const char* Names;
        const char* Sorted;
    } cases[] = {
        {"case is ignored", "Zappa, abba, Queen, ABC, queens", "abba, ABC, Queen, queens, Zappa"},
        {"accents stand with their letter", "Zebra, Émile, Eva, Edna", "Edna, Émile, Eva, Zebra"},
        {"digits are compared before accents", "Café, Cafe", "Café, Cafe"},
        {"digits are compared before accents", "Cafe, Café", "Cafe, Café"},
        {"letters of several units", "ss, ßa, ß, sa", "sa, ss, ß, ßa"},
        {"blanks and punctuation count", "Theater, The Who, The-Dream",
         "The Who, The-Dream, Theater"},
        {"a blank comes before a digit", "Abba, Abba 2", "Abba 2, Abba"},
        {"Song01 and Song011", "Song, Song0", "Song, Song0"},
        {"Song001 and Song11", "Song0, Song", "Song0, Song"},
        {"Song1001 and Song11", "Song10, Song", "Song10, Song"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Sorted(Names(each.Names)), each.Sorted) << each.Rule;
    }
}

TEST(SortedOrder, EqualNamesAreOrderedByTheirNumbersAsText) {
    const QStringList names(13, u"Abba"_s);
    const std::vector<qint32> expected = {0, 10, 1, 11, 12, 2, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_EQ(Order(names), expected);
}

TEST(SortedOrder, TheCountOfDigitsIsPartOfTheComparison) {
    // 1 gives Abba11 and 11 gives Abba112: the shorter one is first. 10 gives Abba102.
    const QStringList names(11, u"Abba"_s);
    const std::vector<qint32> expected = {9, 0, 10, 1, 2, 3, 4, 5, 6, 7, 8};
    EXPECT_EQ(Order(names, 1), expected);
}

TEST(SortedOrder, AKeyMuchLongerThanItsTextIsTakenWhole) {
    // One letter that sorts like a sentence of eighteen.
    const QString longLetters(200, QChar(0xFDFA));
    const QStringList names = {longLetters + u'b', longLetters + u'a', u"a"_s};
    const std::vector<qint32> expected = {2, 1, 0};
    EXPECT_EQ(Order(names), expected);
}

TEST(SortedOrder, HalfCharactersAndControlCharactersAreSortedToo) {
    const QStringList names = {QString(QChar(0xD83D)), u"b"_s, QString(3, QChar(0)), QString(),
                               u"a"_s};
    const std::vector<qint32> order = Order(names);
    // What has no weight of its own is placed by its digits, in front of the letters.
    const std::vector<qint32> expected = {2, 3, 4, 1, 0};
    EXPECT_EQ(order, expected);
}

// The collator is opened once a process, so each of these runs in a process of its own.
namespace {

using Environment = std::vector<std::pair<const char*, QByteArray>>;

constexpr int AfterZ = 1;
constexpr int WithA = 2;

/// Where the environment's locale puts an A with dots.
int OrderUnder(const Environment& environment) {
    for (const char* variable : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        qunsetenv(variable);
    }
    for (const auto& [variable, value] : environment) {
        qputenv(variable, value);
    }
    const std::string sorted = Sorted(Names("Zebra, Ängla, Alma"));
    return sorted == "Alma, Zebra, Ängla" ? AfterZ : sorted == "Alma, Ängla, Zebra" ? WithA : 0;
}

bool MemoryIsLeft = true;

/// The error of sorting when ICU gets no more memory, from its first call on or once it has sorted.
int ErrorWithoutMemory(bool onceSorted) {
    UErrorCode status = U_ZERO_ERROR;
    u_setMemoryFunctions(
        nullptr,
        [](const void*, size_t size) { return MemoryIsLeft ? std::malloc(size) : nullptr; },
        [](const void*, void* block, size_t size) {
            return MemoryIsLeft ? std::realloc(block, size) : nullptr;
        },
        [](const void*, void* block) { std::free(block); }, &status);
    if (U_FAILURE(status) || (onceSorted && Sorted(Names("b, a")) != "a, b")) {
        return 0;
    }
    MemoryIsLeft = false;
    // More accents than ICU has room for at hand.
    try {
        Order({QString(1000, QChar(0xE9)), u"a"_s});
    } catch (const RuntimeError& error) {
        return int(error.Number);
    }
    return 0;
}

class SortedOrderDeathTest : public testing::Test {
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

} // namespace

TEST_F(SortedOrderDeathTest, RunningOutOfMemoryIsAnErrorAndNotAnotherOrder) {
    EXPECT_EXIT(std::exit(ErrorWithoutMemory(true)), testing::ExitedWithCode(7), "");
    EXPECT_EXIT(std::exit(ErrorWithoutMemory(false)), testing::ExitedWithCode(7), "");
}

TEST_F(SortedOrderDeathTest, TheOrderIsThatOfTheUsersLocaleOrOfTheRootLocale) {
    const std::pair<Environment, int> cases[] = {
        {{{"LC_ALL", "sv_SE.UTF-8"}}, AfterZ},
        {{{"LC_COLLATE", "sv_SE"}}, AfterZ},
        {{{"LANG", "sv_SE.UTF-8"}}, AfterZ},
        {{{"LANG", "de_DE.UTF-8"}}, WithA},
        {{{"LC_ALL", "sv_SE"}, {"LC_COLLATE", "de_DE"}, {"LANG", "de_DE"}}, AfterZ},
        {{{"LC_ALL", ""}, {"LC_COLLATE", "sv_SE"}, {"LANG", "de_DE"}}, AfterZ},
        {{{"LC_ALL", "C"}, {"LC_COLLATE", "sv_SE"}, {"LANG", "sv_SE"}}, WithA},
        {{{"LANG", "C.UTF-8"}}, WithA},
        {{{"LANG", "POSIX"}}, WithA},
        {{{"LANG", ""}}, WithA},
        {{}, WithA},
        // what cannot be read counts as not set
        {{{"LANG", "en_US@x="}}, WithA},
        {{{"LANG", "nowhere"}}, WithA},
        {{{"LANG", QByteArray(5000, 'a')}}, WithA},
    };
    for (const auto& [environment, order] : cases) {
        SCOPED_TRACE(testing::PrintToString(environment));
        EXPECT_EXIT(std::exit(OrderUnder(environment)), testing::ExitedWithCode(order), "");
    }
}
