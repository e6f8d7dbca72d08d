#include <gtest/gtest.h>

#include <QApplication>

#include "foundation/startup.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // Windows are shown, but not on anybody's screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    marlowick::prepareApplication();
    return RUN_ALL_TESTS();
}
