#include "platform/Numbers.h"

#include "platform/RuntimeError.h"
#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

double Number(const char* text) {
    return TextToNumber(QString::fromUtf8(text));
}

int ErrorNumberOf(const char* text) {
    return NumberOf([text] { Number(text); });
}

} // namespace

TEST(SixteenBitNumber, IsTheNearestWholeNumberWithTiesToEven) {
    EXPECT_EQ(ToInteger(0.5), 0);
    EXPECT_EQ(ToInteger(1.5), 2);
    EXPECT_EQ(ToInteger(2.5), 2);
    EXPECT_EQ(ToInteger(2.51), 3);
    EXPECT_EQ(ToInteger(-0.5), 0);
    EXPECT_EQ(ToInteger(-1.5), -2);
    EXPECT_EQ(ToInteger(-2.5), -2);
}

TEST(SixteenBitNumber, ReachesItsLimits) {
    EXPECT_EQ(ToInteger(32767.49), 32767);
    EXPECT_EQ(ToInteger(-32768.5), -32768);
}

TEST(SixteenBitNumber, OverflowsPastItsLimits) {
    EXPECT_EQ(NumberOf([] { ToInteger(32767.5); }), 6);
    EXPECT_EQ(NumberOf([] { ToInteger(32768); }), 6);
    EXPECT_EQ(NumberOf([] { ToInteger(-32768.51); }), 6);
    EXPECT_EQ(NumberOf([] { ToInteger(Infinity); }), 6);
    EXPECT_EQ(NumberOf([] { ToInteger(NotANumber); }), 6);
}

TEST(ThirtyTwoBitNumber, IsTheNearestWholeNumberWithTiesToEven) {
    EXPECT_EQ(ToLong(100000.5), 100000);
    EXPECT_EQ(ToLong(100001.5), 100002);
    EXPECT_EQ(ToLong(-100001.5), -100002);
}

TEST(ThirtyTwoBitNumber, ReachesItsLimits) {
    EXPECT_EQ(ToLong(2147483647.49), 2147483647);
    EXPECT_EQ(ToLong(-2147483648.5), std::numeric_limits<qint32>::min());
    EXPECT_EQ(ToLong(qint64{2147483647}), 2147483647);
    EXPECT_EQ(ToLong(-qint64{2147483648}), std::numeric_limits<qint32>::min());
}

TEST(ThirtyTwoBitNumber, OverflowsPastItsLimits) {
    EXPECT_EQ(NumberOf([] { ToLong(2147483647.5); }), 6);
    EXPECT_EQ(NumberOf([] { ToLong(-2147483649.0); }), 6);
    EXPECT_EQ(NumberOf([] { ToLong(-Infinity); }), 6);
    EXPECT_EQ(NumberOf([] { ToLong(NotANumber); }), 6);
    EXPECT_EQ(NumberOf([] { ToLong(qint64{2147483648}); }), 6);
    EXPECT_EQ(NumberOf([] { ToLong(-qint64{2147483649}); }), 6);
}

TEST(SinglePrecisionNumber, OverflowsPastItsLimits) {
    EXPECT_EQ(ToSingle(-3.4e38), -3.4e38F);
    EXPECT_EQ(NumberOf([] { ToSingle(3.5e38); }), 6);
    EXPECT_EQ(NumberOf([] { ToSingle(-Infinity); }), 6);
    EXPECT_EQ(NumberOf([] { ToSingle(NotANumber); }), 6);
}

TEST(FourBytes, AreReadLowestFirst) {
    EXPECT_EQ(BytesToLong(0x78, 0x56, 0x34, 0x12), 305419896);
    EXPECT_EQ(BytesToLong(0, 0, 0, 0), 0);
    EXPECT_EQ(BytesToLong(0xFF, 0xFF, 0xFF, 0x7F), 2147483647);
}

TEST(FourBytes, OverflowFromTwoToThe31stOn) {
    EXPECT_EQ(NumberOf([] { BytesToLong(0, 0, 0, 0x80); }), 6);
    EXPECT_EQ(NumberOf([] { BytesToLong(0xFF, 0xFF, 0xFF, 0xFF); }), 6);
}

TEST(NumberInAText, IsReadWithADecimalPoint) {
    EXPECT_DOUBLE_EQ(Number("12"), 12.0);
    EXPECT_DOUBLE_EQ(Number(" -1.5 "), -1.5);
    EXPECT_DOUBLE_EQ(Number("1e3"), 1000.0);
}

TEST(NumberInAText, OtherTextsAreATypeMismatch) {
    EXPECT_EQ(ErrorNumberOf(""), 13);
    EXPECT_EQ(ErrorNumberOf("  "), 13);
    EXPECT_EQ(ErrorNumberOf("abc"), 13);
    EXPECT_EQ(ErrorNumberOf("12 px"), 13);
    EXPECT_EQ(ErrorNumberOf("1,5"), 13);
    EXPECT_EQ(ErrorNumberOf("nan"), 13);
    EXPECT_EQ(ErrorNumberOf("inf"), 13);
    EXPECT_EQ(ErrorNumberOf("1e999"), 13);
}
