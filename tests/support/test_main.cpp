#include <gtest/gtest.h>

#include <QApplication>

#include "foundation/startup.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    marlowick::prepareApplication();
    return RUN_ALL_TESTS();
}
