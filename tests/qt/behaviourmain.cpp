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
    const std::unique_ptr<QThread> tests(QThread::create([] { QCoreApplication::exit(RUN_ALL_TESTS()); }));
    tests->start();
    const int result = QApplication::exec();
    tests->wait();
    return result;
}
