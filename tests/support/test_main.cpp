#include <gtest/gtest.h>

#include <QApplication>

#include "foundation/startup.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", MARLOWICK_TEST_PLATFORM);
    }
    const QApplication application(argc, argv);
    marlowick::prepareApplication();
    return RUN_ALL_TESTS();
}
