#include "tests/qt/testhome.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    const QTemporaryDir home;
    pixmo::qt::separateFromUser(home);
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    const int result = RUN_ALL_TESTS();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return result;
}
