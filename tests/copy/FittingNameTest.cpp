#include "copy/FittingName.h"
#include "tests/fakes/PrintText.h"

#include <gtest/gtest.h>

namespace {

const NameLimits Ext4;
const NameLimits Fat{255, NameLimits::Unit::Utf16Units, true};
const NameLimits HfsPlus{255, NameLimits::Unit::DecomposedUtf16Units, false};

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

QString Times(int count, const char* text) {
    return Text(text).repeated(count);
}

} // namespace

TEST(FittingName, ANameThatFitsStaysAsItIs) {
    for (const NameLimits& limits : {Ext4, Fat, HfsPlus}) {
        for (const char* text : {"Tiger", ".hidden", "a..b", "Søn–dag", "青い灯台", "CONCERT",
                                 "COM", "COM0", "COM10", "_NUL"}) {
            EXPECT_EQ(FittingName(Text(text), Text(".mp3"), limits), Text(text) + Text(".mp3"));
        }
    }
    EXPECT_EQ(FittingName(Times(251, "a"), Text(".mp3"), Ext4), Times(251, "a") + Text(".mp3"));
    EXPECT_EQ(FittingName(Times(251, "青"), Text(".mp3"), Fat), Times(251, "青") + Text(".mp3"));
}

TEST(FittingName, WhereBytesCountALongNameLosesLettersAtItsEndAndKeepsItsEnding) {
    EXPECT_EQ(FittingName(Times(252, "a"), Text(".mp3"), Ext4), Times(251, "a") + Text(".mp3"));
    EXPECT_EQ(FittingName(Times(90, "青"), Text(".mp3"), Ext4), Times(83, "青") + Text(".mp3"));
    EXPECT_EQ(FittingName(Times(90, "青"), Text(" (2).mp3"), Ext4),
              Times(82, "青") + Text(" (2).mp3"));
}

TEST(FittingName, WhereLettersCountALongNameLosesThem) {
    EXPECT_EQ(FittingName(Times(300, "青"), Text(".mp3"), Fat), Times(251, "青") + Text(".mp3"));
    // A decomposed "é" is two.
    EXPECT_EQ(FittingName(Times(200, "é"), Text(".mp3"), HfsPlus), Times(125, "é") + Text(".mp3"));
}

TEST(FittingName, ALetterIsCutWholeWithAllThatBelongsToIt) {
    const char* const family = "👨‍👩‍👧"; // 18 bytes
    EXPECT_EQ(FittingName(Times(20, family), Text(".mp3"), Ext4), Times(13, family) + Text(".mp3"));
    const char* const accented = "e\u0301"; // 3 bytes
    EXPECT_EQ(FittingName(Times(100, accented), Text(".mp3"), Ext4),
              Times(83, accented) + Text(".mp3"));
    // One letter that is longer than any name keeps some of its accents.
    EXPECT_EQ(FittingName(Text("e") + Times(300, "\u0301"), Text(".mp3"), Ext4),
              Text("e") + Times(125, "\u0301") + Text(".mp3"));
}

TEST(FittingName, ACutLeavesNoBlankAndNoDotBehind) {
    EXPECT_EQ(FittingName(Times(249, "a") + Text(". b"), Text(".mp3"), Ext4),
              Times(249, "a") + Text(".mp3"));
}

TEST(FittingName, ACutThatLeavesNothingButDotsIsUnknown) {
    EXPECT_EQ(FittingName(Times(300, ".") + Text("x"), {}, Ext4), Text("UNKNOWN"));
    EXPECT_EQ(FittingName(Times(300, ".") + Text("x"), Text(".mp3"), Ext4), Text("UNKNOWN.mp3"));
}

TEST(FittingName, WhatNoNameCanHoldIsLeftOut) {
    const QString half = Text("half") + QChar(0xD83C);
    EXPECT_EQ(FittingName(half + Text(" note"), Text(".mp3"), Ext4), Text("half note.mp3"));
    EXPECT_EQ(FittingName(Text("a") + QChar(u'\0') + Text("b"), {}, Ext4), Text("ab"));
    EXPECT_EQ(FittingName(QString(QChar(0xDC00)), Text(".mp3"), Ext4), Text("UNKNOWN.mp3"));
}

TEST(FittingName, ControlCharactersAreLeftOutForWindowsAlone) {
    EXPECT_EQ(FittingName(Text("a\nb\x1f"), Text(".mp3"), Ext4), Text("a\nb\x1f.mp3"));
    EXPECT_EQ(FittingName(Text("a\nb\x1f"), Text(".mp3"), Fat), Text("ab.mp3"));
    EXPECT_EQ(FittingName(Text("\t\n"), {}, Fat), Text("UNKNOWN"));
}

TEST(FittingName, DotsAndBlanksAtTheEndAreLeftOutForWindowsAlone) {
    EXPECT_EQ(FittingName(Text("Song"), Text("."), Ext4), Text("Song."));
    EXPECT_EQ(FittingName(Text("Song"), Text("."), Fat), Text("Song"));
    EXPECT_EQ(FittingName(Text("Song"), Text(".mp3 . "), Fat), Text("Song.mp3"));
    EXPECT_EQ(FittingName(Text("... \t"), {}, Fat), Text("UNKNOWN"));
}

TEST(FittingName, ADevicesNameIsMarkedForWindowsAloneWhateverItsCaseAndExtension) {
    EXPECT_EQ(FittingName(Text("CON"), Text(".mp3"), Ext4), Text("CON.mp3"));
    EXPECT_EQ(FittingName(Text("CON"), {}, Fat), Text("CON_"));
    EXPECT_EQ(FittingName(Text("nul"), Text(".mp3"), Fat), Text("nul_.mp3"));
    EXPECT_EQ(FittingName(Text("Aux.live"), Text(".mp3"), Fat), Text("Aux_.live.mp3"));
    EXPECT_EQ(FittingName(Text("PRN .x"), Text(".mp3"), Fat), Text("PRN _.x.mp3"));
    EXPECT_EQ(FittingName(Text("com1"), Text(".mp3"), Fat), Text("com1_.mp3"));
    EXPECT_EQ(FittingName(Text("LPT9"), Text(".mp3"), Fat), Text("LPT9_.mp3"));
    EXPECT_EQ(FittingName(Text("CON"), Text(" (2).mp3"), Fat), Text("CON (2).mp3"));
}

TEST(FittingName, AnEndingThatLeavesLessThanHalfTheNameIsCutLikeTheRest) {
    EXPECT_EQ(FittingName(Text("Song"), Text(".") + Times(300, "x"), Ext4),
              Text("Song.") + Times(250, "x"));
}
