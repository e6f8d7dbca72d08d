#include <gtest/gtest.h>

#include <QApplication>

#include "start/startup.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", MARLOWICK_TEST_PLATFORM);
    }
    // Under another name than Qt's own: Wine keeps that from the program.
    if (!qEnvironmentVariableIsEmpty("MARLOWICK_TEST_SCALE")) {
        qputenv("QT_SCALE_FACTOR", qgetenv("MARLOWICK_TEST_SCALE"));
    }
    const QApplication application(argc, argv);
    marlowick::prepareApplication();
    return RUN_ALL_TESTS();
}
