#include "tests/qt/qtdriver.h"
#include "tests/qt/testhome.h"

#include <QApplication>
#include <QThread>
#include <gtest/gtest.h>

namespace {

const pixmo::qt::EngineProcess* engine = nullptr;

} // namespace

pixmo::behaviour::FaceDriver::FaceDriver() : my_(std::make_unique<Hands>(*engine)) {}

// The windows live on this thread, the tests on another: they are the user.
int main(int argc, char** argv) {
    const QTemporaryDir home;
    pixmo::qt::separateFromUser(home);
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const pixmo::qt::EngineProcess sampleEngine;
    engine = &sampleEngine;
    // Told to the loop, as there may be nothing to run, and an end before the loop begins is no end.
    const std::unique_ptr<QThread> tests(QThread::create([] {
        const int result = RUN_ALL_TESTS();
        QMetaObject::invokeMethod(
            qApp, [result] { QCoreApplication::exit(result); }, Qt::QueuedConnection);
    }));
    tests->start();
    const int result = QApplication::exec();
    tests->wait();
    return result;
}
