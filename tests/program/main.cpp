#include "app/Application.h"
#include "tests/fakes/FakeServices.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // The tests press keys and buttons themselves; others must not interfere.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    FakeMessages messages;
    application.MessageBoxes = &messages;
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    // A failure that no test waits for is one too.
    return messages.Shown.empty() ? result : 1;
}
