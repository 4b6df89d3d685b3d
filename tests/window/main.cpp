#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // The tests press keys and buttons of their own; nobody else's may come between.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
