#include <gtest/gtest.h>

#include "desktop/application.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const kvt::Application application(argc, argv);
    QApplication::setApplicationName("Test Program");
    return RUN_ALL_TESTS();
}
