#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

std::string TextOf(int number) {
    return RuntimeError(ErrorNumber(number)).Description.toStdString();
}

RuntimeError Caught(const std::function<void()>& failing) {
    try {
        failing();
    } catch (const std::exception& exception) {
        return ErrorOf(exception);
    }
    ADD_FAILURE() << "nothing thrown";
    return RuntimeError(ErrorNumber(0), {});
}

} // namespace

TEST(RuntimeErrorText, IsFixedForEveryNumberInUse) {
    EXPECT_EQ(TextOf(5), "Invalid procedure call or argument");
    EXPECT_EQ(TextOf(6), "Overflow");
    EXPECT_EQ(TextOf(7), "Out of memory");
    EXPECT_EQ(TextOf(9), "Subscript out of range");
    EXPECT_EQ(TextOf(13), "Type mismatch");
    EXPECT_EQ(TextOf(52), "Bad file name or number");
    EXPECT_EQ(TextOf(53), "File not found");
    EXPECT_EQ(TextOf(57), "Device I/O error");
    EXPECT_EQ(TextOf(58), "File already exists");
    EXPECT_EQ(TextOf(61), "Disk full");
    EXPECT_EQ(TextOf(68), "Device unavailable");
    EXPECT_EQ(TextOf(70), "Permission denied");
    EXPECT_EQ(TextOf(75), "Path/File access error");
    EXPECT_EQ(TextOf(76), "Path not found");
}

TEST(RuntimeErrorText, CanBeAnotherThanThatOfTheNumber) {
    const RuntimeError error(ErrorNumber(11), u"database disk image is malformed"_s);
    EXPECT_EQ(int(error.Number), 11);
    EXPECT_EQ(error.Description, u"database disk image is malformed"_s);
}

TEST(ErrorOfAnException, IsARuntimeErrorItself) {
    const RuntimeError error =
        Caught([] { throw RuntimeError(ErrorNumber(11), u"database disk image is malformed"_s); });
    EXPECT_EQ(int(error.Number), 11);
    EXPECT_EQ(error.Description, u"database disk image is malformed"_s);
}

TEST(ErrorOfAnException, IsWhatAnotherOneStandsFor) {
    EXPECT_EQ(int(Caught([] { throw std::bad_alloc(); }).Number), 7);
    EXPECT_EQ(int(Caught([] { throw std::length_error("too long for any memory"); }).Number), 7);
    EXPECT_EQ(int(Caught([] { throw std::out_of_range("a programming error"); }).Number), 9);
    EXPECT_EQ(int(Caught([] { throw std::logic_error("a programming error"); }).Number), 5);
}
