#include <gtest/gtest.h>

#include "shell/qt/GuardedApplication.h"

// The toolkit's parts without a screen: pictures, paper, events and widgets need none.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    velna::GuardedApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
