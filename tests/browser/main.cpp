#include <QByteArray>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // The order of the lists follows the locale; the tests expect that of no country.
    qputenv("LC_ALL", "C");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
