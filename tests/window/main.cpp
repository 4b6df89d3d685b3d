#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // The tests press keys and buttons themselves; others must not interfere.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
