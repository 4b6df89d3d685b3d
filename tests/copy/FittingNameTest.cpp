#include "copy/FittingName.h"
#include "tests/fakes/Text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const NameLimits Ext4;
const NameLimits Fat{255, NameLimits::Unit::Utf16Units, true};
const NameLimits HfsPlus{255, NameLimits::Unit::DecomposedUtf16Units, false};

QString Times(int count, const char* text) {
    return Text(text).repeated(count);
}

} // namespace

TEST(FittingName, ANameThatFitsStaysAsItIs) {
    for (const NameLimits& limits : {Ext4, Fat, HfsPlus}) {
        for (const char* text : {"Tiger", ".hidden", "a..b", "Søn–dag", "青い灯台", "CONCERT",
                                 "COM", "COM0", "COM10", "_NUL"}) {
            EXPECT_EQ(FittingName(Text(text), u".mp3"_s, limits), Text(text) + u".mp3"_s);
        }
    }
    EXPECT_EQ(FittingName(Times(251, "a"), u".mp3"_s, Ext4), Times(251, "a") + u".mp3"_s);
    EXPECT_EQ(FittingName(Times(251, "青"), u".mp3"_s, Fat), Times(251, "青") + u".mp3"_s);
}

TEST(FittingName, WhereBytesCountALongNameLosesLettersAtItsEndAndKeepsItsEnding) {
    EXPECT_EQ(FittingName(Times(252, "a"), u".mp3"_s, Ext4), Times(251, "a") + u".mp3"_s);
    EXPECT_EQ(FittingName(Times(90, "青"), u".mp3"_s, Ext4), Times(83, "青") + u".mp3"_s);
    EXPECT_EQ(FittingName(Times(90, "青"), u" (2).mp3"_s, Ext4), Times(82, "青") + u" (2).mp3"_s);
}

TEST(FittingName, WhereLettersCountALongNameLosesThem) {
    EXPECT_EQ(FittingName(Times(300, "青"), u".mp3"_s, Fat), Times(251, "青") + u".mp3"_s);
    // A decomposed "é" is two.
    EXPECT_EQ(FittingName(Times(200, "é"), u".mp3"_s, HfsPlus), Times(125, "é") + u".mp3"_s);
}

TEST(FittingName, ALetterIsCutWholeWithAllThatBelongsToIt) {
    const char* const family = "👨‍👩‍👧"; // 18 bytes
    EXPECT_EQ(FittingName(Times(20, family), u".mp3"_s, Ext4), Times(13, family) + u".mp3"_s);
    const char* const accented = "e\u0301"; // 3 bytes
    EXPECT_EQ(FittingName(Times(100, accented), u".mp3"_s, Ext4), Times(83, accented) + u".mp3"_s);
    // One letter that is longer than any name keeps some of its accents.
    EXPECT_EQ(FittingName(u"e"_s + Times(300, "\u0301"), u".mp3"_s, Ext4),
              u"e"_s + Times(125, "\u0301") + u".mp3"_s);
}

TEST(FittingName, ACutLeavesNoBlankAndNoDotBehind) {
    EXPECT_EQ(FittingName(Times(249, "a") + u". b"_s, u".mp3"_s, Ext4),
              Times(249, "a") + u".mp3"_s);
}

TEST(FittingName, ACutThatLeavesNothingButDotsIsUnknown) {
    EXPECT_EQ(FittingName(Times(300, ".") + u"x"_s, {}, Ext4), u"UNKNOWN"_s);
    EXPECT_EQ(FittingName(Times(300, ".") + u"x"_s, u".mp3"_s, Ext4), u"UNKNOWN.mp3"_s);
}

TEST(FittingName, NoNameLeadsOutOfItsFolderBecauseSomethingWasLeftOut) {
    EXPECT_EQ(FittingName(u".."_s + QChar(0xD83C), {}, Ext4), u"UNKNOWN"_s);
    EXPECT_EQ(FittingName(u"."_s + u'\0', u"."_s, Ext4), u"UNKNOWN."_s);
}

TEST(FittingName, WhatNoNameCanHoldIsLeftOut) {
    const QString half = u"half"_s + QChar(0xD83C);
    EXPECT_EQ(FittingName(half + u" note"_s, u".mp3"_s, Ext4), u"half note.mp3"_s);
    EXPECT_EQ(FittingName(u"a"_s + u'\0' + u"b"_s, {}, Ext4), u"ab"_s);
    EXPECT_EQ(FittingName(QString(QChar(0xDC00)), u".mp3"_s, Ext4), u"UNKNOWN.mp3"_s);
}

TEST(FittingName, ControlCharactersAreLeftOutForWindowsAlone) {
    EXPECT_EQ(FittingName(u"a\nb\x1f"_s, u".mp3"_s, Ext4), u"a\nb\x1f.mp3"_s);
    EXPECT_EQ(FittingName(u"a\nb\x1f"_s, u".mp3"_s, Fat), u"ab.mp3"_s);
    EXPECT_EQ(FittingName(u"\t\n"_s, {}, Fat), u"UNKNOWN"_s);
}

TEST(FittingName, DotsAndBlanksAtTheEndAreLeftOutForWindowsAlone) {
    EXPECT_EQ(FittingName(u"Song"_s, u"."_s, Ext4), u"Song."_s);
    EXPECT_EQ(FittingName(u"Song"_s, u"."_s, Fat), u"Song"_s);
    EXPECT_EQ(FittingName(u"Song"_s, u".mp3 . "_s, Fat), u"Song.mp3"_s);
    EXPECT_EQ(FittingName(u"... \t"_s, {}, Fat), u"UNKNOWN"_s);
}

TEST(FittingName, ADevicesNameIsMarkedForWindowsAloneWhateverItsCaseAndExtension) {
    EXPECT_EQ(FittingName(u"CON"_s, u".mp3"_s, Ext4), u"CON.mp3"_s);
    EXPECT_EQ(FittingName(u"CON"_s, {}, Fat), u"CON_"_s);
    EXPECT_EQ(FittingName(u"nul"_s, u".mp3"_s, Fat), u"nul_.mp3"_s);
    EXPECT_EQ(FittingName(u"Aux.live"_s, u".mp3"_s, Fat), u"Aux_.live.mp3"_s);
    EXPECT_EQ(FittingName(u"PRN .x"_s, u".mp3"_s, Fat), u"PRN _.x.mp3"_s);
    EXPECT_EQ(FittingName(u"com1"_s, u".mp3"_s, Fat), u"com1_.mp3"_s);
    EXPECT_EQ(FittingName(u"LPT9"_s, u".mp3"_s, Fat), u"LPT9_.mp3"_s);
    EXPECT_EQ(FittingName(u"CON"_s, u" (2).mp3"_s, Fat), u"CON (2).mp3"_s);
    // The cut leaves the device alone.
    EXPECT_EQ(FittingName(u"CON"_s + Times(300, " ") + u"x"_s, u".mp3"_s, Fat), u"CON_.mp3"_s);
}

TEST(FittingName, AnEndingThatLeavesLessThanHalfTheNameIsCutLikeTheRestButKeepsItsNumber) {
    EXPECT_EQ(FittingName(u"Song"_s, u"."_s + Times(300, "x"), Ext4), u"Song."_s + Times(250, "x"));
    EXPECT_EQ(FittingName(Times(300, "a"), u" (2)."_s + Times(300, "x"), Ext4),
              Times(128, "a") + u" (2)."_s + Times(122, "x"));
}
